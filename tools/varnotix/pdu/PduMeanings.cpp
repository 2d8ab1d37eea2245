#include "pdu/PduMeanings.h"

#include <algorithm>

namespace
{

constexpr int kApplicationContext = 0x10;
constexpr int kAbstractSyntax = 0x30;
constexpr int kTransferSyntax = 0x40;
constexpr int kMaximumLength = 0x51;
constexpr int kImplementationClass = 0x52;

bool IsPrintable(char letter)
{
    return letter >= ' ' && letter <= '~';
}

BYTE ByteAt(const CString& bytes, int index)
{
    return static_cast<BYTE>(bytes.GetAt(index));
}

/// The text in quotes; what is no printable ASCII stands as \xNN.
CString Quoted(std::string_view text)
{
    CString quoted = "'";
    for (const char letter : text)
    {
        if (IsPrintable(letter))
        {
            quoted += letter;
            continue;
        }
        CString code;
        code.Format("\\x%02X", static_cast<unsigned>(static_cast<BYTE>(letter)));
        quoted += code;
    }
    return quoted + "'";
}

CString UidMeaning(const CString& uid)
{
    const CDcmRegistry& registry = CDcmRegistry::Global();
    const int row = registry.UidEnum(uid);
    return row < 0 ? Quoted(uid.View()) : Quoted(uid.View()) + ", " + registry.UidName(row);
}

/// The library's own builder writes this number low byte first, other programs high byte first.
CString MaximumLengthMeaning(const CString& bytes)
{
    const auto number = [&bytes](int first, int step)
    {
        DWORD value = 0;
        for (int i = 0; i < 4; ++i)
        {
            value = value << 8U | ByteAt(bytes, first + i * step);
        }
        return NumberText(value);
    };
    return number(0, 1) + " bytes; low byte first it would be " + number(3, -1);
}

} // namespace

CString NumberText(DWORD number)
{
    CString text;
    text.Format("%lu", static_cast<unsigned long>(number));
    return text;
}

CString SizeText(int size)
{
    return NumberText(static_cast<DWORD>(size)) + (size == 1 ? " byte" : " bytes");
}

CString CodeMeaning(int code, const char* text)
{
    CString meaning;
    meaning.Format("%s (%02XH)", text, static_cast<unsigned>(code));
    return meaning;
}

CString TitleText(const CString& bytes)
{
    return Quoted(bytes.CText());
}

CString ControlMeaning(BYTE control)
{
    CString meaning = (control & 1) != 0 ? "command" : "data set";
    meaning += (control & 2) != 0 ? ", last fragment" : ", more fragments follow";
    return meaning;
}

const char* ContextSubItemName(int type)
{
    switch (type)
    {
    case kAbstractSyntax:
        return "abstract syntax";
    case kTransferSyntax:
        return "transfer syntax";
    default:
        return "unknown, passed over";
    }
}

const char* UserSubItemName(int type)
{
    switch (type)
    {
    case kMaximumLength:
        return "maximum length";
    case kImplementationClass:
        return "implementation class UID";
    case 0x53:
        return "asynchronous operations window";
    case 0x54:
        return "SCP/SCU role selection";
    case 0x55:
        return "implementation version name";
    case 0x56:
        return "SOP class extended negotiation";
    case 0x57:
        return "SOP class common extended negotiation";
    case 0x58:
        return "user identity, request";
    case 0x59:
        return "user identity, answer";
    default:
        return "unknown";
    }
}

CString NameMeaning(int type, const CString& bytes)
{
    const bool isKnown = type == kApplicationContext || type == kAbstractSyntax || type == kTransferSyntax;
    return isKnown ? UidMeaning(bytes) : SizeText(bytes.GetLength());
}

CString UserDataMeaning(int type, const CString& bytes)
{
    if (bytes.GetLength() > CDcmUserData::kMaxSize)
    {
        return SizeText(bytes.GetLength()) + ", of which the decoder keeps 255";
    }
    if (type == kMaximumLength && bytes.GetLength() == 4)
    {
        return MaximumLengthMeaning(bytes);
    }
    const std::string_view text = bytes.View();
    const bool isText = std::all_of(text.begin(), text.end(), IsPrintable);
    return isText ? UidMeaning(bytes) : SizeText(bytes.GetLength());
}
