// Decodes the byte image of a protocol data unit. Lengths that do not fit end the decoding where it is; the size of the
// whole field alone bounds every read.

#include "Varnotix/pdu/DcmProtocolDataUnit.h"
#include "Varnotix/pdu/PduBytes.h"
#include "Varnotix/platform/Exceptions.h"

#include <algorithm>
#include <cstdint>
#include <new>

namespace
{

/// The bytes as text, up to the first zero byte.
CString TitleText(const BYTE* bytes)
{
    const BYTE* end = std::find(bytes, bytes + kTitleSize, BYTE{0});
    return CString(reinterpret_cast<const char*>(bytes), static_cast<int>(end - bytes));
}

/// A sub-item: type, reserved byte, 16-bit length, value.
struct SSubItem
{
    int type = 0;
    const BYTE* value = nullptr;
    int size = 0;

    CString Text() const { return CString(reinterpret_cast<const char*>(value), size); }
};

/// Takes the sub-item at a position and moves behind it. False when its header or value runs past the field.
bool TakeSubItem(const CByteArray& field, int& position, SSubItem& item)
{
    if (field.GetSize() - position < kItemHeader)
    {
        return false;
    }
    const BYTE* header = field.GetData() + position;
    item.type = header[0];
    item.size = Big16(header + 2);
    item.value = header + kItemHeader;
    if (field.GetSize() - position - kItemHeader < item.size)
    {
        return false;
    }
    position += kItemHeader + item.size;
    return true;
}

} // namespace

void CDcmProtocolDataUnit::DecodeProtocol()
{
    // Memory that runs out ends the decoding where it is, as a length does that does not fit.
    try
    {
        DecodeField();
    }
    catch (const CMemoryException&)
    {
    }
    catch (const std::bad_alloc&)
    {
    }
}

void CDcmProtocolDataUnit::DecodeField()
{
    const int size = m_pduField.GetSize();
    m_type = 0;
    if (size >= kPduHeaderSize)
    {
        m_type = m_pduField[0];
        m_length = static_cast<int>(Big32(m_pduField.GetData() + 2));
    }
    // The length is compared with the whole field, header included: a PDU a few bytes short is still read.
    if (m_length > size)
    {
        return;
    }
    switch (m_type)
    {
    case PDU_ASSOCIATE_RQ:
    case PDU_ASSOCIATE_AC:
        DecodeAssociation();
        break;
    case PDU_ASSOCIATE_RJ:
        if (size >= kShortPduSize)
        {
            m_result = m_pduField[7];
            m_source = m_pduField[8];
            m_reason = m_pduField[9];
        }
        break;
    case PDU_DATA_TF:
        DecodeDataValues();
        break;
    case PDU_ABORT:
        if (size >= kShortPduSize)
        {
            m_source = m_pduField[8];
            m_reason = m_pduField[9];
        }
        break;
    default:
        break;
    }
}

void CDcmProtocolDataUnit::DecodeDataValues()
{
    const std::int64_t size = m_pduField.GetSize();
    std::int64_t position = kPduHeaderSize;
    while (size - position >= kDataValueHeader)
    {
        const BYTE* item = m_pduField.GetData() + position;
        const std::int64_t itemLength = Big32(item);
        const std::int64_t end = position + kItemHeader + itemLength;
        if (end > size)
        {
            return;
        }
        CByteArray data;
        if (itemLength > 2)
        {
            data.Assign(item + kDataValueHeader, static_cast<int>(itemLength - 2));
        }
        AddPresentationDataValue(data, item[4], item[5]);
        position = end;
    }
}

void CDcmProtocolDataUnit::DecodeAssociation()
{
    m_applicationContexts.RemoveAll();
    DestroyPresentationContextItems();
    DestroyUserDataItems();
    DestroyPresentationDataItems();
    if (m_pduField.GetSize() < kCallingTitleOffset + kTitleSize)
    {
        return;
    }
    const BYTE* field = m_pduField.GetData();
    const unsigned highBits = static_cast<unsigned>(m_version) & 0xFFFF0000U;
    m_version = static_cast<int>(highBits | static_cast<unsigned>(Big16(field + kPduHeaderSize)));
    m_calledAE = TitleText(field + kCalledTitleOffset);
    m_callingAE = TitleText(field + kCallingTitleOffset);
    bool fits = m_pduField.GetSize() >= kAssociateFixedSize;
    int position = kAssociateFixedSize;
    while (fits && position < m_pduField.GetSize())
    {
        switch (m_pduField[position])
        {
        case kApplicationContextItem:
            fits = DecodeApplicationContext(position);
            break;
        case kPresentationContextRqItem:
        case kPresentationContextAcItem:
            fits = DecodePresentationContext(position);
            break;
        case kUserInformationItem:
            fits = DecodeUserInformation(position);
            break;
        default:
            // An unknown item is not skipped by its length: the scan goes on at its next byte, and may take a byte
            // inside it for the start of a known item.
            ++position;
            break;
        }
    }
}

bool CDcmProtocolDataUnit::DecodeApplicationContext(int& position)
{
    SSubItem item;
    if (!TakeSubItem(m_pduField, position, item))
    {
        return false;
    }
    AddApplicationContextItem(item.Text());
    return true;
}

bool CDcmProtocolDataUnit::DecodePresentationContext(int& position)
{
    if (m_pduField.GetSize() - position < kContextItemHeader)
    {
        return false;
    }
    const BYTE* header = m_pduField.GetData() + position;
    const std::int64_t end = std::int64_t{position} + kItemHeader + Big16(header + 2);
    CPresentationContext context;
    context.ContextID(header[4]);
    context.Result(header[6]);
    position += kContextItemHeader;
    bool fits = true;
    while (fits && position < m_pduField.GetSize() && position < end)
    {
        SSubItem item;
        fits = TakeSubItem(m_pduField, position, item);
        if (fits && item.type == kAbstractSyntaxItem)
        {
            context.AbstractSyntax(item.Text());
        }
        else if (fits && item.type == kTransferSyntaxItem)
        {
            context.AddTransferSyntax(item.Text());
        }
    }
    AddPresentationContext(&context, context.ContextID(), context.Result());
    return fits;
}

bool CDcmProtocolDataUnit::DecodeUserInformation(int& position)
{
    if (m_pduField.GetSize() - position < kItemHeader)
    {
        return false;
    }
    const std::int64_t end = std::int64_t{position} + kItemHeader + Big16(m_pduField.GetData() + position + 2);
    position += kItemHeader;
    while (position < m_pduField.GetSize() && position < end)
    {
        SSubItem item;
        if (!TakeSubItem(m_pduField, position, item))
        {
            return false;
        }
        CByteArray data;
        data.Assign(item.value, item.size);
        AddUserDataItem(item.type, data);
    }
    return true;
}
