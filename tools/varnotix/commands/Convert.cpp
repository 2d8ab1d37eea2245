#include "commands/Commands.h"
#include "files/FileKinds.h"
#include "files/Input.h"
#include "files/OutputFolder.h"
#include "rewrite/Rewrite.h"
#include "run/InputRun.h"

namespace
{

constexpr const char* kFooter =
    "'varnotix convert IN OUT', or 'varnotix convert -o OUT FILE...'. OUT is a folder when it ends with '/', exists "
    "as\n"
    "one, or gets several files. It holds what IN holds, in the same bytes unless IN breaks the standard. A data set\n"
    "without preamble and file meta information gets both when its syntax changes. OUT appears when it is complete;\n"
    "IN and OUT may be the same file. Compressed pixel data is not decompressed: 'explicit' keeps its transfer\n"
    "syntax, the others refuse it. Standard error gets a summary of what OUT does not hold as IN did: VRs that\n"
    "implicit VR does not state, faults of IN that are mended. With -v it is one line per element.\n"
    "With --classic, items are regrouped, one per element, and values of VR UN and empty values in lists are lost.";

struct SConvertOptions
{
    int syntax = SYNTAX_UNKNOWN; // One of ESyntax, or kSyntaxDeflated; unknown: that of the input.
    SInputs inputs;
    CString output;     // Empty: the last of the inputs names it.
    bool force = false; // Also what other readers would refuse.
};

int ConvertOne(const SConvertOptions& options, const SInput& input, const CReport& report)
{
    const CString name = ShownName(input.path);
    CDcmIOD object;
    if (!ReadObject(input.path, object, report))
    {
        return STATUS_UNREADABLE;
    }
    const SObjectForm form = FormOf(object);
    const bool keepsSyntax = options.syntax == SYNTAX_UNKNOWN;
    const int syntax = keepsSyntax ? form.syntax : options.syntax;
    STarget target{CString(), syntax, input.output, input.path, form.isBare && syntax == form.syntax, options.force};
    if (!target.staysBare)
    {
        target.uid = keepsSyntax ? UidToKeep(form, name, report) : UidToWrite(form, name, syntax, report);
        if (target.uid.IsEmpty())
        {
            return STATUS_UNREADABLE;
        }
        if (!MayWrite(object, target.uid, options.force, name, report))
        {
            return STATUS_UNWRITTEN;
        }
    }
    CLossReport losses;
    losses.AddReadNotes(object);
    if (object.StreamRules() == STREAM_RULES_CLASSIC && form.syntax == SYNTAX_IMPLICIT_LITTLE &&
        syntax != SYNTAX_IMPLICIT_LITTLE && !form.compressed)
    {
        SetPixelDataVr(object.ElementStore(), name, report);
    }
    Rewrite(object, form, target, name, losses, report);
    return STATUS_DONE;
}

/// True for an existing folder whose name does not end with a separator.
bool IsPlainFolder(const CString& path)
{
    return FileKindOf(path) == EFileKind::Folder && !FileNameOf(path).IsEmpty();
}

int Convert(SConvertOptions& options, const CReport& report)
{
    std::vector<CString>& names = options.inputs.names;
    if (options.output.IsEmpty())
    {
        if (names.size() < 2)
        {
            report.Error("the output is missing: name it after the inputs, or with -o");
            return STATUS_USAGE;
        }
        options.output = names.back();
        names.pop_back();
        if (names.size() == 1 && FileKindOf(names.front()) != EFileKind::Folder && IsPlainFolder(options.output))
        {
            // Where one file is to become another, a folder in its place is mostly a mistake.
            report.Error("cannot write '" + options.output + "': it is a folder; with '/' at its end OUT goes into it");
            return STATUS_UNWRITTEN;
        }
    }
    if (!PlaceOutputs(options.inputs, options.output, report))
    {
        return STATUS_USAGE;
    }
    if (!HasDataFiles(report, true))
    {
        return STATUS_UNREADABLE;
    }
    const auto convert = [&options](const SJob& job)
    {
        return ReportWriteFailures(job.input.output, job.report,
                                   [&] { return ConvertOne(options, job.input, job.report); });
    };
    return RunInputs(options.inputs, report, "were not converted", convert);
}

} // namespace

void AddConvert(CCommandLine& line)
{
    const auto options = std::make_shared<SConvertOptions>();
    CVerb verb = line.AddVerb("convert", "Rewrite a file in another transfer syntax", kFooter);
    verb.Syntax(options->syntax,
                "The syntax to write: implicit, explicit or deflated explicit VR little endian, or explicit VR "
                "big endian; without it, that of IN",
                CVerb::ENeed::Optional);
    verb.Inputs(options->inputs, "Files to read, and without -o the OUT to write; '-' is standard input or output");
    verb.Text("-o,--output", options->output,
              "File or folder to write to, '-' for standard output; without it, the last FILE", CVerb::ENeed::Optional);
    verb.Flag("--force", options->force, "Write an OUT that other readers would refuse");
    verb.MessageFlags();
    verb.Action(options, Convert);
}
