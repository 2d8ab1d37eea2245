#include "commands/Commands.h"
#include "files/Input.h"
#include "rewrite/Rewrite.h"

namespace
{

constexpr const char* kFooter =
    "OUT holds what IN holds. Without --syntax it has the same bytes, unless IN breaks the standard. A data set\n"
    "without preamble and file meta information gets both when its syntax changes. OUT appears when it is complete;\n"
    "IN and OUT may be the same file. Compressed pixel data is not decompressed: 'explicit' keeps its transfer\n"
    "syntax, the others refuse it. Standard error gets a summary of what OUT does not hold as IN did: VRs that\n"
    "implicit VR does not state, faults of IN that are mended. With -v it is one line per element.\n"
    "With --classic, items are regrouped, one per element, and values of VR UN and empty values in lists are lost.";

struct SConvertOptions
{
    int syntax = SYNTAX_UNKNOWN; // One of ESyntax, or kSyntaxDeflated; unknown: that of the input.
    CString input;
    CString output;
    bool force = false; // Also what other readers would refuse.
};

int ConvertOne(const SConvertOptions& options, const CReport& report)
{
    const CString name = ShownName(options.input);
    CDcmIOD object;
    if (!ReadObject(options.input, object, report))
    {
        return STATUS_UNREADABLE;
    }
    const SObjectForm form = FormOf(object);
    const bool keepsSyntax = options.syntax == SYNTAX_UNKNOWN;
    const int syntax = keepsSyntax ? form.syntax : options.syntax;
    STarget target{CString(),    syntax, options.output, options.input, form.isBare && syntax == form.syntax,
                   options.force};
    if (!target.staysBare)
    {
        target.uid = keepsSyntax ? UidToKeep(form, name, report) : UidToWrite(form, name, syntax, report);
        if (target.uid.IsEmpty())
        {
            return STATUS_UNREADABLE;
        }
        const CString mismatch = PixelDataMismatch(object.ElementStore(), target.uid);
        if (!mismatch.IsEmpty() && !options.force)
        {
            report.Error(name + ": " + mismatch + "; other readers would refuse the output, which --force writes");
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

int Convert(const SConvertOptions& options, const CReport& report)
{
    if (!HasDataFiles(report, true))
    {
        return STATUS_UNREADABLE;
    }
    return ReportWriteFailures(options.output, report, [&] { return ConvertOne(options, report); });
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
    verb.Text("IN", options->input, "File to read; '-' is standard input");
    verb.Text("OUT", options->output, "File to write; '-' is standard output");
    verb.Flag("--force", options->force, "Write an OUT that other readers would refuse");
    verb.MessageFlags();
    verb.Action([options](const CReport& report) { return Convert(*options, report); });
}
