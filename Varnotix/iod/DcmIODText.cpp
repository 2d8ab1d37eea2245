// The text document of an information object: written and read.

#include "Varnotix/asl/AslWriter.h"
#include "Varnotix/iod/DcmIOD.h"
#include "Varnotix/iod/DcmIODPrivate.h"
#include "Varnotix/platform/Archive.h"
#include "Varnotix/script/DcmAttributeScript.h"

namespace
{

CString SyntaxWord(int syntax)
{
    switch (syntax)
    {
    case SYNTAX_UNKNOWN:
        return "unknown";
    case SYNTAX_IMPLICIT_LITTLE:
        return "implicit_little_endian";
    case SYNTAX_EXPLICIT_LITTLE:
        return "explicit_little_endian";
    case SYNTAX_EXPLICIT_BIG:
        return "explicit_big_endian";
    default:
        CString number;
        number.Format("%d", syntax);
        return number;
    }
}

CString CountLine(const char* key, int count)
{
    CString line;
    line.Format("#%s=%d", key, count);
    return line;
}

/// Reads a file line by line. What cannot be opened or read is left out.
void ReadLines(const CString& path, CStringArray& lines)
{
    try
    {
        CFile file(path, CFile::modeRead);
        CArchive archive(&file, CArchive::load, 4096);
        for (CString line; archive.ReadString(line);)
        {
            lines.Add(line);
        }
    }
    catch (const CFileException&)
    {
        // The lines read so far count.
    }
}

} // namespace

void CDcmIOD::Export(CStringArray& lines) const
{
    lines.RemoveAll();
    lines.Add("#Attribute Script Language(ASL)  written by Varnotix");
    lines.Add(CString("#SOURCE_FILE=") + m_pathName);
    lines.Add(CString("#IOD_KIND=") + GetRuntimeClass()->m_lpszClassName);
    lines.Add(CString("#IOD_SYNTAX=") + SyntaxWord(m_syntax));
    lines.Add(CountLine("COUNT", GetCount()));
    lines.Add(CountLine("COUNT_ALL", GetCountAll()));
    lines.Add("#ATTRIBUTE_SET_BEGIN");
    Varnotix::AslLines(*m_store, lines, m_streamRules == STREAM_RULES_STANDARD);
    lines.Add("#ATTRIBUTE_SET_END");
}

void CDcmIOD::Export(const CString& path) const
{
    CStringArray lines;
    Export(lines);
    lines.Add(CString());
    Varnotix::WriteAslFile(path, lines);
}

void CDcmIOD::ImportFromASL(const CString& path)
{
    CStringArray lines;
    ReadLines(path, lines);
    CDcmAttributeScript script;
    script.StreamRules(m_streamRules);
    CDcmAttributeModule module;
    script.Run(lines, module);
    m_private->scriptNotes = script.Notes();
    if (module.GetCount() > 0)
    {
        m_store->CopyByValue(module.GetDcmElementSet());
        UpdateIodModuleSet();
    }
}

const std::vector<SScriptNote>& CDcmIOD::ScriptNotes() const
{
    return m_private->scriptNotes;
}
