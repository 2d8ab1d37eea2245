#include "pdu/PduFields.h"

#include "pdu/PduMeanings.h"

#include <algorithm>
#include <cstdint>

namespace
{

constexpr int kHeaderSize = 6;
constexpr int kShortSize = 10;
constexpr int kTitlesEnd = 42;
constexpr int kFixedSize = 74;
constexpr int kTitleSize = 16;
constexpr int kItemHeader = 4;
constexpr int kContextHeader = 8;
constexpr int kDataHeader = 6;

constexpr int kApplicationContext = 0x10;
constexpr int kRequestContext = 0x20;
constexpr int kAcceptContext = 0x21;
constexpr int kUserInformation = 0x50;

bool IsKnownItem(BYTE type)
{
    return type == kApplicationContext || type == kRequestContext || type == kAcceptContext || type == kUserInformation;
}

/// Goes through a PDU as the decoder does, and notes each field on the way.
class CFieldWalk
{
public:
    explicit CFieldWalk(const CByteArray& bytes) : m_bytes(bytes) {}

    std::vector<SPduField> Take()
    {
        const CString reason = Walk();
        if (Left() > 0)
        {
            m_fields.push_back({m_position, Left(), "unread bytes", reason, true});
        }
        return std::move(m_fields);
    }

private:
    int Left() const { return m_bytes.GetSize() - m_position; }
    const BYTE* Here() const { return m_bytes.GetData() + m_position; }
    int Number16(int offset) const { return Here()[offset] << 8 | Here()[offset + 1]; }
    DWORD Number32() const { return static_cast<DWORD>(Number16(0)) << 16U | static_cast<DWORD>(Number16(2)); }
    CString Text(int size) const { return CString(reinterpret_cast<const char*>(Here()), size); }

    void Add(int size, const CString& name, const CString& meaning = CString())
    {
        if (size > 0)
        {
            m_fields.push_back({m_position, size, name, meaning, false});
            m_position += size;
        }
    }
    void AddReserved(int size) { Add(size, "reserved"); }
    void AddByte(const CString& name, const char* text)
    {
        const int code = Here()[0];
        Add(1, name, CodeMeaning(code, text));
    }
    void AddLength16(const CString& name) { Add(2, name, NumberText(static_cast<DWORD>(Number16(0)))); }

    /// @return why the walk ended; of interest when there are bytes left.
    CString Walk()
    {
        if (Left() < kHeaderSize)
        {
            return "too short for a PDU header";
        }
        const int type = Here()[0];
        AddByte("PDU type", PduTypeName(type));
        AddReserved(1);
        const DWORD length = Number32();
        Add(4, "PDU length", NumberText(length));
        // The decoder holds the length as a number with sign and compares it with the whole PDU.
        if (static_cast<int>(length) > m_bytes.GetSize())
        {
            return "the PDU length runs past the end";
        }
        switch (type)
        {
        case PDU_ASSOCIATE_RQ:
        case PDU_ASSOCIATE_AC:
            return WalkAssociation();
        case PDU_ASSOCIATE_RJ:
        case PDU_ABORT:
            return WalkRefusal(type == PDU_ABORT);
        case PDU_DATA_TF:
            return WalkDataValues();
        case PDU_RELEASE_RQ:
        case PDU_RELEASE_RP:
            AddReserved(std::min(Left(), kShortSize - kHeaderSize));
            return "a release has ten bytes";
        default:
            return "the PDU type is unknown";
        }
    }

    CString WalkRefusal(bool isAbort)
    {
        if (m_bytes.GetSize() < kShortSize)
        {
            return "too short for result, source and reason";
        }
        AddReserved(isAbort ? 2 : 1);
        if (!isAbort)
        {
            AddByte("result", RejectResultText(Here()[0]));
        }
        const int source = Here()[0];
        AddByte("source", isAbort ? AbortSourceText(source) : RejectSourceText(source));
        const int reason = Here()[0];
        AddByte("reason", isAbort ? AbortReasonText(source, reason) : RejectReasonText(source, reason));
        return "such a PDU has ten bytes";
    }

    CString WalkDataValues()
    {
        while (Left() >= kDataHeader)
        {
            const DWORD length = Number32();
            if (length > static_cast<DWORD>(Left() - kItemHeader))
            {
                return "the data value runs past the end";
            }
            const int size = static_cast<int>(length);
            Add(kItemHeader, "data value length", NumberText(length));
            if (size >= 2)
            {
                Add(1, "context ID", NumberText(Here()[0]));
                Add(1, "message control", ControlMeaning(Here()[0]));
                Add(size - 2, "data", SizeText(size - 2));
            }
            else
            {
                Add(size, "skipped", "too short for context ID and message control");
            }
        }
        return "too short for a data value";
    }

    CString WalkAssociation()
    {
        if (m_bytes.GetSize() < kTitlesEnd)
        {
            return "too short for version and titles";
        }
        Add(2, "protocol version", NumberText(static_cast<DWORD>(Number16(0))));
        AddReserved(2);
        Add(kTitleSize, "called AE title", TitleText(Text(kTitleSize)));
        Add(kTitleSize, "calling AE title", TitleText(Text(kTitleSize)));
        if (m_bytes.GetSize() < kFixedSize)
        {
            return "too short for the fixed part";
        }
        AddReserved(kFixedSize - kTitlesEnd);
        bool fits = true;
        while (fits && Left() > 0)
        {
            switch (Here()[0])
            {
            case kApplicationContext:
                fits = AddItem("item type", "application context", "application context name", NameMeaning);
                break;
            case kRequestContext:
            case kAcceptContext:
                fits = WalkContext();
                break;
            case kUserInformation:
                fits = WalkUserInformation();
                break;
            default:
                AddUnknown();
                break;
            }
        }
        return "an item runs past the end";
    }

    /// Bytes at which no known item starts: the decoder tries them one by one.
    void AddUnknown()
    {
        const BYTE* start = Here();
        const BYTE* end = std::find_if(start, start + Left(), IsKnownItem);
        Add(static_cast<int>(end - start), "skipped", "no item type that is known");
    }

    /// An item or sub-item of type, reserved byte, length and value; nothing when it does not fit.
    template <class MEANING>
    bool AddItem(const CString& typeName, const char* type, const CString& valueName, const MEANING& meaning)
    {
        if (Left() < kItemHeader || Left() - kItemHeader < Number16(2))
        {
            return false;
        }
        const int code = Here()[0];
        const int size = Number16(2);
        Add(1, typeName, CodeMeaning(code, type));
        AddReserved(1);
        AddLength16("length");
        Add(size, valueName, meaning(code, Text(size)));
        return true;
    }

    bool WalkContext()
    {
        if (Left() < kContextHeader)
        {
            return false;
        }
        const bool isAccept = Here()[0] == kAcceptContext;
        const std::int64_t end = std::int64_t{m_position} + kItemHeader + Number16(2);
        Add(1, "item type",
            CodeMeaning(Here()[0], isAccept ? "presentation context (AC)" : "presentation context (RQ)"));
        AddReserved(1);
        AddLength16("item length");
        Add(1, "context ID", NumberText(Here()[0]));
        AddReserved(1);
        if (isAccept)
        {
            AddByte("result", ContextResultText(Here()[0]));
        }
        else
        {
            AddReserved(1);
        }
        AddReserved(1);
        bool fits = true;
        while (fits && Left() > 0 && m_position < end)
        {
            const int type = Here()[0];
            fits = AddItem("sub-item type", ContextSubItemName(type), "value", NameMeaning);
        }
        return fits;
    }

    bool WalkUserInformation()
    {
        if (Left() < kItemHeader)
        {
            return false;
        }
        const std::int64_t end = std::int64_t{m_position} + kItemHeader + Number16(2);
        AddByte("item type", "user information");
        AddReserved(1);
        AddLength16("item length");
        bool fits = true;
        while (fits && Left() > 0 && m_position < end)
        {
            const int type = Here()[0];
            fits = AddItem("sub-item type", UserSubItemName(type), "value", UserDataMeaning);
        }
        return fits;
    }

    const CByteArray& m_bytes;
    int m_position = 0;
    std::vector<SPduField> m_fields;
};

} // namespace

std::vector<SPduField> ListPduFields(const CByteArray& pdu)
{
    return CFieldWalk(pdu).Take();
}
