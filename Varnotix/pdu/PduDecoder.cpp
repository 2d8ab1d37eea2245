// Makes the fields and items of a protocol data unit from its byte image.

#include "Varnotix/pdu/DcmProtocolDataUnit.h"
#include "Varnotix/pdu/PduBytes.h"
#include "Varnotix/pdu/PduReader.h"
#include "Varnotix/platform/Exceptions.h"

#include <algorithm>
#include <new>

using namespace Varnotix;

/// Fills a PDU with the fields that a reader finds in its byte image.
class CDcmProtocolDataUnit::CDecoder final : public CPduVisitor
{
public:
    explicit CDecoder(CDcmProtocolDataUnit& pdu) : m_pdu(pdu) {}

    void OnField(const SPduField& field) override;
    void OnAssociation() override;
    void OnContextEnd() override;

private:
    void AddToContext(const SPduField& field);
    void ReplaceVersion(int lowBits);

    CDcmProtocolDataUnit& m_pdu;
    CPresentationContext m_context; // The one that is being read, or an empty one.
    int m_contextId = 0;
    int m_contextResult = 0;
    int m_messageControl = 0;
};

namespace
{

CString Text(const SPduField& field)
{
    return CString(reinterpret_cast<const char*>(field.bytes), field.size);
}

/// The text up to the first zero byte.
CString TitleText(const SPduField& field)
{
    const BYTE* end = std::find(field.bytes, field.bytes + field.size, BYTE{0});
    return CString(reinterpret_cast<const char*>(field.bytes), static_cast<int>(end - field.bytes));
}

CByteArray Bytes(const SPduField& field)
{
    CByteArray bytes;
    bytes.Assign(field.bytes, field.size);
    return bytes;
}

} // namespace

void CDcmProtocolDataUnit::CDecoder::OnField(const SPduField& field)
{
    switch (field.kind)
    {
    case EPduField::PduType:
        m_pdu.m_type = field.bytes[0];
        break;
    case EPduField::PduLength:
        m_pdu.m_length = static_cast<int>(Big32(field.bytes));
        break;
    case EPduField::ProtocolVersion:
        ReplaceVersion(Big16(field.bytes));
        break;
    case EPduField::CalledTitle:
        m_pdu.m_calledAE = TitleText(field);
        break;
    case EPduField::CallingTitle:
        m_pdu.m_callingAE = TitleText(field);
        break;
    case EPduField::Result:
        m_pdu.m_result = field.bytes[0];
        break;
    case EPduField::Source:
        m_pdu.m_source = field.bytes[0];
        break;
    case EPduField::Reason:
        m_pdu.m_reason = field.bytes[0];
        break;
    case EPduField::ApplicationName:
        m_pdu.AddApplicationContextItem(Text(field));
        break;
    case EPduField::ContextId:
        m_contextId = field.bytes[0];
        break;
    case EPduField::ContextResult:
        m_contextResult = field.bytes[0];
        break;
    case EPduField::ContextValue:
        AddToContext(field);
        break;
    case EPduField::UserData:
        m_pdu.AddUserDataItem(field.type, Bytes(field));
        break;
    case EPduField::MessageControl:
        m_messageControl = field.bytes[0];
        break;
    case EPduField::Fragment:
        m_pdu.AddPresentationDataValue(Bytes(field), m_contextId, m_messageControl);
        break;
    case EPduField::Reserved:
    case EPduField::ItemType:
    case EPduField::ItemLength:
    case EPduField::SubItemType:
    case EPduField::SubItemLength:
    case EPduField::ValueLength:
    case EPduField::Skipped:
        break;
    }
}

void CDcmProtocolDataUnit::CDecoder::OnAssociation()
{
    m_pdu.m_applicationContexts.RemoveAll();
    m_pdu.DestroyPresentationContextItems();
    m_pdu.DestroyUserDataItems();
    m_pdu.DestroyPresentationDataItems();
}

void CDcmProtocolDataUnit::CDecoder::OnContextEnd()
{
    m_pdu.AddPresentationContext(&m_context, m_contextId, m_contextResult);
    m_context = CPresentationContext();
}

void CDcmProtocolDataUnit::CDecoder::AddToContext(const SPduField& field)
{
    if (field.type == PDU_ITEM_ABSTRACT_SYNTAX)
    {
        m_context.AbstractSyntax(Text(field));
    }
    else if (field.type == PDU_ITEM_TRANSFER_SYNTAX)
    {
        m_context.AddTransferSyntax(Text(field));
    }
}

void CDcmProtocolDataUnit::CDecoder::ReplaceVersion(int lowBits)
{
    const unsigned highBits = static_cast<unsigned>(m_pdu.m_version) & 0xFFFF0000U;
    m_pdu.m_version = static_cast<int>(highBits | static_cast<unsigned>(lowBits));
}

void CDcmProtocolDataUnit::Create(const CByteArray& bytes)
{
    m_pduField = bytes;
    DecodeProtocol();
}

void CDcmProtocolDataUnit::DecodeProtocol()
{
    m_type = 0;
    // Memory that runs out ends the decoding where it is, like a length that does not fit.
    try
    {
        CDecoder decoder(*this);
        ReadPdu(m_pduField, decoder);
    }
    catch (const CMemoryException&)
    {
    }
    catch (const std::bad_alloc&)
    {
    }
}
