#include "console/Report.h"

#include "console/Console.h"
#include "console/StandardStreams.h"

void CReport::PutLine(const CString& text) const
{
    const CString line = text + "\n";
    if (m_console != nullptr)
    {
        m_console->Message(line.View());
        return;
    }
    WriteStandardError(line.View());
}

void CReport::Error(const CString& text) const
{
    PutLine("varnotix: " + text);
}

void CReport::ErrorLine(const CString& text) const
{
    PutLine("  " + text);
}

void CReport::Say(const CString& text) const
{
    if (!m_quiet)
    {
        PutLine("varnotix: " + text);
    }
}

void CReport::Detail(const CString& text) const
{
    if (m_verbose)
    {
        PutLine("varnotix: " + text);
    }
}

CString TagName(DWORD tag)
{
    CString text;
    text.Format("(%04X,%04X)", static_cast<unsigned>(Varnotix::Tag::Group(tag)),
                static_cast<unsigned>(Varnotix::Tag::Element(tag)));
    return text;
}

CString TagAndName(DWORD tag)
{
    const CDcmEntry* entry = CDcmRegistry::Global().LookUpTag(tag);
    return entry == nullptr || entry->name.IsEmpty() ? TagName(tag) : TagName(tag) + " " + entry->name;
}

const char* SyntaxName(int syntax)
{
    switch (syntax)
    {
    case SYNTAX_IMPLICIT_LITTLE:
        return "implicit VR little endian";
    case SYNTAX_EXPLICIT_LITTLE:
        return "explicit VR little endian";
    case kSyntaxDeflated:
        return "deflated explicit VR little endian";
    case SYNTAX_EXPLICIT_BIG:
        return "explicit VR big endian";
    default:
        return "unknown syntax";
    }
}
