#include "Varnotix/pdu/PduReader.h"

#include "Varnotix/pdu/PduBytes.h"
#include "Varnotix/pdu/PduNames.h"

#include <algorithm>
#include <cstdint>

namespace Varnotix
{

namespace
{

bool IsKnownItem(BYTE type)
{
    return type == PDU_ITEM_APPLICATION_CONTEXT || type == PDU_ITEM_CONTEXT_RQ || type == PDU_ITEM_CONTEXT_AC ||
           type == PDU_ITEM_USER_INFORMATION;
}

/// A position in a PDU. The size of the whole array bounds every read.
class CPduReader
{
public:
    CPduReader(const CByteArray& bytes, CPduVisitor& visitor) : m_bytes(bytes), m_visitor(visitor) {}

    EPduStop Read();
    int Position() const { return m_position; }
    int Left() const { return m_bytes.GetSize() - m_position; }

private:
    const BYTE* Here() const { return m_bytes.GetData() + m_position; }
    void Field(EPduField kind, int type, int size) { Field(kind, type, size, Here()); }
    void Field(EPduField kind, int type, int size, const BYTE* bytes)
    {
        m_visitor.OnField({kind, type, m_position, size, bytes});
        m_position += size;
    }
    EPduStop ReadRefusal(int type);
    EPduStop ReadDataValues(int type);
    EPduStop ReadAssociation(int type);
    bool ReadItem();
    std::int64_t ReadItemHeader(EPduField typeKind, EPduField lengthKind);
    bool ReadSubItem(EPduField typeKind, EPduField lengthKind, EPduField valueKind);
    bool ReadSubItems(std::int64_t end, EPduField valueKind);
    bool ReadContext();
    bool ReadUserInformation();

    const CByteArray& m_bytes;
    CPduVisitor& m_visitor;
    int m_position = 0;
};

EPduStop CPduReader::Read()
{
    if (Left() < kPduHeaderSize)
    {
        return EPduStop::NoHeader;
    }
    const int type = Here()[0];
    Field(EPduField::PduType, type, 1);
    Field(EPduField::Reserved, type, 1);
    // A signed number, compared with the whole PDU, header included: a PDU a few bytes short is still read.
    const int length = static_cast<int>(Big32(Here()));
    Field(EPduField::PduLength, type, 4);
    if (length > m_bytes.GetSize())
    {
        return EPduStop::LengthTooLarge;
    }
    switch (type)
    {
    case PDU_ASSOCIATE_RQ:
    case PDU_ASSOCIATE_AC:
        m_visitor.OnAssociation();
        return ReadAssociation(type);
    case PDU_ASSOCIATE_RJ:
    case PDU_ABORT:
        return ReadRefusal(type);
    case PDU_DATA_TF:
        return ReadDataValues(type);
    case PDU_RELEASE_RQ:
    case PDU_RELEASE_RP:
        Field(EPduField::Reserved, type, std::min(Left(), kShortPduSize - kPduHeaderSize));
        return EPduStop::BytesAfterEnd;
    default:
        return EPduStop::UnknownType;
    }
}

EPduStop CPduReader::ReadRefusal(int type)
{
    if (m_bytes.GetSize() < kShortPduSize)
    {
        return EPduStop::NoReason;
    }
    Field(EPduField::Reserved, type, type == PDU_ABORT ? 2 : 1);
    if (type != PDU_ABORT)
    {
        Field(EPduField::Result, type, 1);
    }
    Field(EPduField::Source, type, 1);
    Field(EPduField::Reason, type, 1);
    return EPduStop::BytesAfterEnd;
}

EPduStop CPduReader::ReadDataValues(int type)
{
    while (Left() >= kDataValueHeader)
    {
        const DWORD length = Big32(Here());
        if (length > static_cast<DWORD>(Left() - kItemHeader))
        {
            return EPduStop::DataValueTooLong;
        }
        Field(EPduField::ValueLength, type, kItemHeader);
        // ID and control are taken from their places even where the length leaves no room for them.
        const int size = static_cast<int>(length);
        const BYTE* value = Here();
        Field(EPduField::ContextId, type, std::min(size, 1), value);
        Field(EPduField::MessageControl, type, std::clamp(size - 1, 0, 1), value + 1);
        Field(EPduField::Fragment, type, std::max(size - 2, 0), value + 2);
    }
    return EPduStop::NoDataValueHeader;
}

EPduStop CPduReader::ReadAssociation(int type)
{
    if (m_bytes.GetSize() < kCallingTitleOffset + kTitleSize)
    {
        return EPduStop::NoTitles;
    }
    Field(EPduField::ProtocolVersion, type, 2);
    Field(EPduField::Reserved, type, 2);
    Field(EPduField::CalledTitle, type, kTitleSize);
    Field(EPduField::CallingTitle, type, kTitleSize);
    if (m_bytes.GetSize() < kAssociateFixedSize)
    {
        return EPduStop::NoFixedPart;
    }
    Field(EPduField::Reserved, type, kAssociateFixedSize - m_position);
    bool fits = true;
    while (fits && Left() > 0)
    {
        fits = ReadItem();
    }
    return EPduStop::ItemTooLong;
}

/// @return false when the item does not fit. Only the fields of a presentation context or user information that come
///         before the misfit are reported then.
bool CPduReader::ReadItem()
{
    switch (Here()[0])
    {
    case PDU_ITEM_APPLICATION_CONTEXT:
        return ReadSubItem(EPduField::ItemType, EPduField::ItemLength, EPduField::ApplicationName);
    case PDU_ITEM_CONTEXT_RQ:
    case PDU_ITEM_CONTEXT_AC:
        return ReadContext();
    case PDU_ITEM_USER_INFORMATION:
        return ReadUserInformation();
    default:
        // An unknown item is not skipped by its length: a byte inside it may be taken for the start of a known item.
        Field(EPduField::Skipped, Here()[0],
              static_cast<int>(std::find_if(Here(), Here() + Left(), IsKnownItem) - Here()));
        return true;
    }
}

/// Reads type, reserved byte and 16-bit length, for which there must be room.
/// @return the position at which the value ends; the PDU may end before it.
std::int64_t CPduReader::ReadItemHeader(EPduField typeKind, EPduField lengthKind)
{
    const int type = Here()[0];
    const std::int64_t end = std::int64_t{m_position} + kItemHeader + Big16(Here() + 2);
    Field(typeKind, type, 1);
    Field(EPduField::Reserved, type, 1);
    Field(lengthKind, type, 2);
    return end;
}

/// Reads an item header and its value, or nothing when they run past the end.
bool CPduReader::ReadSubItem(EPduField typeKind, EPduField lengthKind, EPduField valueKind)
{
    if (Left() < kItemHeader)
    {
        return false;
    }
    const int type = Here()[0];
    const int size = Big16(Here() + 2);
    if (Left() - kItemHeader < size)
    {
        return false;
    }
    ReadItemHeader(typeKind, lengthKind);
    Field(valueKind, type, size);
    return true;
}

bool CPduReader::ReadSubItems(std::int64_t end, EPduField valueKind)
{
    bool fits = true;
    while (fits && Left() > 0 && m_position < end)
    {
        fits = ReadSubItem(EPduField::SubItemType, EPduField::SubItemLength, valueKind);
    }
    return fits;
}

bool CPduReader::ReadContext()
{
    if (Left() < kContextItemHeader)
    {
        return false;
    }
    const int type = Here()[0];
    const std::int64_t end = ReadItemHeader(EPduField::ItemType, EPduField::ItemLength);
    Field(EPduField::ContextId, type, 1);
    Field(EPduField::Reserved, type, 1);
    Field(EPduField::ContextResult, type, 1);
    Field(EPduField::Reserved, type, 1);
    const bool fits = ReadSubItems(end, EPduField::ContextValue);
    m_visitor.OnContextEnd();
    return fits;
}

bool CPduReader::ReadUserInformation()
{
    if (Left() < kItemHeader)
    {
        return false;
    }
    const std::int64_t end = ReadItemHeader(EPduField::ItemType, EPduField::ItemLength);
    return ReadSubItems(end, EPduField::UserData);
}

} // namespace

CPduVisitor::~CPduVisitor() = default;

void CPduVisitor::OnAssociation() {}

void CPduVisitor::OnContextEnd() {}

SPduEnd ReadPdu(const CByteArray& bytes, CPduVisitor& visitor)
{
    CPduReader reader(bytes, visitor);
    const EPduStop reason = reader.Read();
    return {reader.Left() > 0 ? reason : EPduStop::Complete, reader.Position()};
}

} // namespace Varnotix
