#include "Varnotix/platform/FileSearch.h"
#include "commands/Commands.h"
#include "console/StandardStreams.h"
#include "object/ObjectRules.h"

namespace
{

CString FileLine(const char* name, const CString& path, const CString& rest)
{
    return CString(name) + ": " +
           (path.IsEmpty() ? CString("not found") : Varnotix::JoinPath(Varnotix::CurrentDirectory(), path) + rest) +
           "\n";
}

CString Rows(int count)
{
    CString text;
    text.Format(", %d rows", count);
    return text;
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
    const CString text = FileLine("dictionary.txt", CDcmRegistry::DictionaryPath(), Rows(registry.DictionarySize())) +
                         FileLine("UidTable.txt", CDcmRegistry::UidTablePath(), Rows(registry.UidDictionarySize())) +
                         FileLine("objects.txt", ObjectRulesPath(), CString()) +
                         FileLine("deidentification.txt", Varnotix::ProfilePath(), Rows(Varnotix::ProfileSize())) +
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
