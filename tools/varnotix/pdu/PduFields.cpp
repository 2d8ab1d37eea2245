#include "pdu/PduFields.h"

#include "pdu/PduMeanings.h"

using namespace Varnotix;

namespace
{

int Number16(const BYTE* bytes)
{
    return bytes[0] << 8 | bytes[1];
}

DWORD Number32(const BYTE* bytes)
{
    return static_cast<DWORD>(Number16(bytes)) << 16U | static_cast<DWORD>(Number16(bytes + 2));
}

CString ValueOf(const SPduField& field)
{
    return CString(reinterpret_cast<const char*>(field.bytes), field.size);
}

const char* StopText(EPduStop reason)
{
    switch (reason)
    {
    case EPduStop::Complete:
        return "";
    case EPduStop::NoHeader:
        return "too short for a PDU header";
    case EPduStop::LengthTooLarge:
        return "the PDU length runs past the end";
    case EPduStop::UnknownType:
        return "the PDU type is unknown";
    case EPduStop::NoReason:
        return "too short for result, source and reason";
    case EPduStop::BytesAfterEnd:
        return "such a PDU has ten bytes";
    case EPduStop::NoTitles:
        return "too short for version and titles";
    case EPduStop::NoFixedPart:
        return "too short for the fixed part";
    case EPduStop::ItemTooLong:
        return "an item runs past the end";
    case EPduStop::DataValueTooLong:
        return "the data value runs past the end";
    case EPduStop::NoDataValueHeader:
        return "too short for a data value";
    }
    return "unknown";
}

/// Gives each field its name and meaning.
class CFieldList final : public CPduVisitor
{
public:
    void OnField(const SPduField& field) override
    {
        if (field.kind == EPduField::ItemType)
        {
            m_itemType = field.type;
        }
        if (field.size > 0)
        {
            const SText text = TextOf(field);
            m_fields.push_back({field.offset, field.size, text.name, text.meaning, false});
        }
        if (field.kind == EPduField::Source)
        {
            m_source = field.bytes[0];
        }
    }
    void AddUnread(int offset, int size, const char* reason)
    {
        m_fields.push_back({offset, size, "unread bytes", reason, true});
    }
    std::vector<SShownField> Take() { return std::move(m_fields); }

private:
    struct SText
    {
        CString name;
        CString meaning;
    };

    SText TextOf(const SPduField& field) const;
    const char* SubItemName(int type) const
    {
        return m_itemType == PDU_ITEM_USER_INFORMATION ? UserSubItemName(type) : ContextSubItemName(type);
    }

    std::vector<SShownField> m_fields;
    int m_itemType = 0;
    int m_source = 0;
};

CFieldList::SText CFieldList::TextOf(const SPduField& field) const
{
    const int code = field.bytes[0];
    const bool isAbort = field.type == PDU_ABORT;
    switch (field.kind)
    {
    case EPduField::PduType:
        return {"PDU type", CodeMeaning(code, PduTypeName(code))};
    case EPduField::PduLength:
        return {"PDU length", NumberText(Number32(field.bytes))};
    case EPduField::Reserved:
        return {"reserved", ""};
    case EPduField::ProtocolVersion:
        return {"protocol version", NumberText(static_cast<DWORD>(Number16(field.bytes)))};
    case EPduField::CalledTitle:
        return {"called AE title", TitleText(ValueOf(field))};
    case EPduField::CallingTitle:
        return {"calling AE title", TitleText(ValueOf(field))};
    case EPduField::Result:
        return {"result", CodeMeaning(code, RejectResultText(code))};
    case EPduField::Source:
        return {"source", CodeMeaning(code, isAbort ? AbortSourceText(code) : RejectSourceText(code))};
    case EPduField::Reason:
        return {"reason",
                CodeMeaning(code, isAbort ? AbortReasonText(m_source, code) : RejectReasonText(m_source, code))};
    case EPduField::ItemType:
        return {"item type", CodeMeaning(code, ItemName(code))};
    case EPduField::ItemLength:
        return {"item length", NumberText(static_cast<DWORD>(Number16(field.bytes)))};
    case EPduField::ApplicationName:
        return {"application context name", NameMeaning(field.type, ValueOf(field))};
    case EPduField::ContextId:
        return {"context ID", NumberText(static_cast<DWORD>(code))};
    case EPduField::ContextResult:
        // A request has a reserved byte where an answer has the result.
        return field.type == PDU_ITEM_CONTEXT_AC ? SText{"result", CodeMeaning(code, ContextResultText(code))}
                                                 : SText{"reserved", ""};
    case EPduField::SubItemType:
        return {"sub-item type", CodeMeaning(code, SubItemName(code))};
    case EPduField::SubItemLength:
        return {"sub-item length", NumberText(static_cast<DWORD>(Number16(field.bytes)))};
    case EPduField::ContextValue:
        return {"value", NameMeaning(field.type, ValueOf(field))};
    case EPduField::UserData:
        return {"value", UserDataMeaning(field.type, ValueOf(field))};
    case EPduField::ValueLength:
        return {"data value length", NumberText(Number32(field.bytes))};
    case EPduField::MessageControl:
        return {"message control", ControlMeaning(field.bytes[0])};
    case EPduField::Fragment:
        return {"data", SizeText(field.size)};
    case EPduField::Skipped:
        return {"skipped", "no known item type"};
    }
    return {"unknown", ""};
}

} // namespace

std::vector<SShownField> ListPduFields(const CByteArray& pdu)
{
    CFieldList list;
    const SPduEnd end = ReadPdu(pdu, list);
    if (end.reason != EPduStop::Complete)
    {
        list.AddUnread(end.offset, pdu.GetSize() - end.offset, StopText(end.reason));
    }
    return list.Take();
}
