#include "pdu/PduMeanings.h"

#include <algorithm>

using namespace Varnotix;

namespace
{

bool IsPrintable(char letter)
{
    return letter >= ' ' && letter <= '~';
}

BYTE ByteAt(const CString& bytes, int index)
{
    return static_cast<BYTE>(bytes.GetAt(index));
}

/// The text in quotes; other bytes than printable ASCII are written as \xNN.
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

/// The standard asks for the high byte first; CDcmProtocolDataUnit::AddUserDataItem(int, DWORD) writes the low byte
/// first.
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

const char* ItemName(int type)
{
    switch (type)
    {
    case PDU_ITEM_APPLICATION_CONTEXT:
        return "application context";
    case PDU_ITEM_CONTEXT_RQ:
        return "presentation context (RQ)";
    case PDU_ITEM_CONTEXT_AC:
        return "presentation context (AC)";
    case PDU_ITEM_USER_INFORMATION:
        return "user information";
    default:
        return "unknown";
    }
}

const char* ContextSubItemName(int type)
{
    switch (type)
    {
    case PDU_ITEM_ABSTRACT_SYNTAX:
        return "abstract syntax";
    case PDU_ITEM_TRANSFER_SYNTAX:
        return "transfer syntax";
    default:
        return "unknown";
    }
}

const char* UserSubItemName(int type)
{
    switch (type)
    {
    case PDU_ITEM_MAXIMUM_LENGTH:
        return "maximum length";
    case PDU_ITEM_IMPLEMENTATION_CLASS:
        return "implementation class UID";
    case PDU_ITEM_ASYNCHRONOUS_OPERATIONS:
        return "asynchronous operations window";
    case PDU_ITEM_ROLE_SELECTION:
        return "SCP/SCU role selection";
    case PDU_ITEM_IMPLEMENTATION_VERSION:
        return "implementation version name";
    case PDU_ITEM_EXTENDED_NEGOTIATION:
        return "SOP class extended negotiation";
    case PDU_ITEM_COMMON_EXTENDED_NEGOTIATION:
        return "SOP class common extended negotiation";
    case PDU_ITEM_USER_IDENTITY_RQ:
        return "user identity, request";
    case PDU_ITEM_USER_IDENTITY_AC:
        return "user identity, answer";
    default:
        return "unknown";
    }
}

CString NameMeaning(int type, const CString& bytes)
{
    const bool isKnown =
        type == PDU_ITEM_APPLICATION_CONTEXT || type == PDU_ITEM_ABSTRACT_SYNTAX || type == PDU_ITEM_TRANSFER_SYNTAX;
    return isKnown ? UidMeaning(bytes) : SizeText(bytes.GetLength());
}

CString UserDataMeaning(int type, const CString& bytes)
{
    if (bytes.GetLength() > CDcmUserData::kMaxSize)
    {
        return SizeText(bytes.GetLength()) + ", of which the decoder keeps 255";
    }
    if (type == PDU_ITEM_MAXIMUM_LENGTH && bytes.GetLength() == 4)
    {
        return MaximumLengthMeaning(bytes);
    }
    const std::string_view text = bytes.View();
    const bool isText = std::all_of(text.begin(), text.end(), IsPrintable);
    return isText ? UidMeaning(bytes) : SizeText(bytes.GetLength());
}
