#include "Varnotix/platform/FileSearch.h"
#include "commands/Commands.h"
#include "console/StandardStreams.h"

namespace
{

CString TableLine(const char* name, const CString& path, int rows)
{
    if (path.IsEmpty())
    {
        return CString(name) + ": not found\n";
    }
    CString count;
    count.Format(", %d rows\n", rows);
    return CString(name) + ": " + Varnotix::JoinPath(Varnotix::CurrentDirectory(), path) + count;
}

CString Places()
{
    const CString configured = Varnotix::EnvironmentVariable("VARNOTIX_DATA");
    const CString library = Varnotix::LibraryDirectory();
    CString text = "looked for, in this order, in\n";
    text += "  the current directory: " + Varnotix::CurrentDirectory() + "\n";
    text += "  VARNOTIX_DATA: " + (configured.IsEmpty() ? CString("not set") : configured) + "\n";
    if (!library.IsEmpty())
    {
        text += "  the library's folder: " + library + "\n";
        text += "  the share folder: " + Varnotix::JoinPath(library, "../share/varnotix") + "\n";
        text += "  the share folder: " + Varnotix::JoinPath(library, "../../share/varnotix") + "\n";
    }
    return text;
}

int Where(const CReport& /*report*/)
{
    const CDcmRegistry& registry = CDcmRegistry::Global();
    const CString text = TableLine("dictionary.txt", CDcmRegistry::DictionaryPath(), registry.DictionarySize()) +
                         TableLine("UidTable.txt", CDcmRegistry::UidTablePath(), registry.UidDictionarySize()) +
                         Places();
    WriteStandardOutput(text.View());
    FlushStandardOutput();
    return STATUS_DONE;
}

} // namespace

void AddWhere(CCommandLine& line)
{
    line.AddVerb("where", "Print which data files were loaded, and from where").Action(Where);
}
