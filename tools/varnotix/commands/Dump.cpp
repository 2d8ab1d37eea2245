#include "commands/Commands.h"
#include "files/Input.h"
#include "object/TypedObject.h"
#include "run/InputRun.h"

namespace
{

constexpr const char* kFooter =
    "The first lines of a document begin with '#': file, syntax that it was read in, number of elements.";

constexpr const char* kSourceLine = "#SOURCE_FILE=";

int DumpOne(const SJob& job)
{
    const CString& path = job.input.path;
    CDcmIOD object;
    SReadStop stop;
    if (!ReadObjectPart(path, object, stop, job.report))
    {
        return STATUS_UNREADABLE;
    }
    job.report.Detail(ShownName(path) + ": read as " + SyntaxName(object.IodSyntax()));
    const std::unique_ptr<CDcmIOD> typed = MakeTypedObject(object);
    CStringArray lines;
    typed->Export(lines);
    for (const CString& line : lines)
    {
        job.console.Print(line.View());
        if (line == kSourceLine)
        {
            // The typed object was made from the one that was read, and has no path of its own.
            job.console.Print(path == "-" ? std::string_view() : path.View());
        }
        job.console.Print("\n");
    }
    job.console.Flush();
    return ReportStop(path, stop, job.report);
}

int Dump(const SInputs& inputs, const CReport& report)
{
    return HasDataFiles(report, false) ? RunInputs(inputs, report, "could not be read", &DumpOne) : STATUS_UNREADABLE;
}

} // namespace

void AddDump(CCommandLine& line)
{
    const auto inputs = std::make_shared<SInputs>();
    CVerb verb = line.AddVerb("dump", "Print the text document of each file", kFooter);
    verb.Inputs(*inputs, "Files to print; '-' is standard input");
    verb.MessageFlags();
    verb.Action([inputs](const CReport& report) { return Dump(*inputs, report); });
}
