#include "console/Report.h"

#include <cstdio>

namespace
{

void PutLine(const CString& text)
{
    // One call per line, so that lines of several programs on one terminal do not mix.
    const CString line = text + "\n";
    std::fwrite(line, 1, static_cast<std::size_t>(line.GetLength()), stderr);
}

} // namespace

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
