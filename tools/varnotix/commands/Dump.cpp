#include "commands/Commands.h"
#include "console/Terminal.h"
#include "files/Input.h"
#include "json/JsonWriter.h"
#include "object/TypedObject.h"
#include "object/ValueText.h"
#include "run/InputRun.h"

namespace
{

constexpr const char* kFooter = "The first lines of a document begin with '#': file, syntax that it was read in, "
                                "number of elements. Texts have the\n"
                                "bytes of the object; on a terminal they are in UTF-8.";

constexpr const char* kSourceLine = "#SOURCE_FILE=";

struct SDumpOptions
{
    SInputs inputs;
    bool asJson = false;
    SJsonForm json;
};

int DumpJson(const SJob& job, const SJsonForm& form)
{
    const CString& path = job.input.path;
    CDcmIOD object;
    SReadStop stop;
    if (!ReadObjectPart(path, object, stop, job.report))
    {
        return STATUS_UNREADABLE;
    }
    CJsonWriter(form, path, job.console, job.report).Write(object.ElementStore());
    job.console.Flush();
    return ReportStop(path, stop, job.report);
}

int DumpText(const SJob& job)
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
    const CCharacterSet characters = CCharacterSet::Of(typed->ElementStore(), 0, CCharacterSet());
    const bool isForPeople = IsTerminal(EStandardStream::Output);
    CStringArray lines;
    typed->Export(lines);
    for (const CString& line : lines)
    {
        job.console.Print(isForPeople ? Printable(characters.ToUtf8(line.View(), "UT").Joined()) : line.View());
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

int Dump(const SDumpOptions& options, const CReport& report)
{
    if (!HasDataFiles(report, false))
    {
        return STATUS_UNREADABLE;
    }
    SJsonForm form = options.json;
    if (!options.asJson && (form.hasMeta || form.leavesOutBulk || form.inlineLimit != SJsonForm().inlineLimit))
    {
        report.Error("--meta, --inline and --no-bulk are for JSON, and need --json");
        return STATUS_USAGE;
    }
    // One object is mostly read by people, many are read line by line.
    form.isIndented = options.inputs.names.size() == 1 && !options.inputs.entersFolders;
    const auto dump = [&](const SJob& job) { return options.asJson ? DumpJson(job, form) : DumpText(job); };
    return RunInputs(options.inputs, report, "could not be read", dump);
}

} // namespace

void AddDump(CCommandLine& line)
{
    const auto options = std::make_shared<SDumpOptions>();
    CVerb verb = line.AddVerb("dump", "Print the text document of each file", kFooter);
    verb.Inputs(options->inputs, "Files to print; '-' is standard input");
    verb.Flag("--json", options->asJson, "Print the DICOM JSON model instead; several objects in a line each");
    verb.Flag("--meta", options->json.hasMeta, "With --json: print the file meta information, too");
    verb.Number("--inline", options->json.inlineLimit,
                "With --json: values of bytes up to this size are in the document, larger ones are references into the "
                "file");
    verb.Flag("--no-bulk", options->json.leavesOutBulk, "With --json: leave attributes with larger values out");
    verb.MessageFlags();
    verb.Action([options](const CReport& report) { return Dump(*options, report); });
}
