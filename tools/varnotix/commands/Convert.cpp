#include "commands/Commands.h"
#include "files/Input.h"
#include "rewrite/Rewrite.h"

namespace
{

constexpr const char* kFooter =
    "IN is a file with or without preamble and file meta information; OUT always gets both, and its Transfer Syntax\n"
    "UID (0002,0010) is set. OUT appears when it is complete; IN and OUT may be the same file.\n"
    "Compressed pixel data is not decompressed: 'explicit' keeps its transfer syntax, the others refuse it.\n"
    "In big endian, item lengths have a byte order specific to this library, which other readers may not know.\n"
    "A rewrite regroups the items of sequences, one item per element, drops values of VR UN and empty values in\n"
    "lists, and recomputes group lengths. Standard error gets a summary of what OUT no longer holds as IN did,\n"
    "or one line per element with -v.";

struct SConvertOptions
{
    int syntax = SYNTAX_UNKNOWN; // One of ESyntax.
    CString input;
    CString output;
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
    const CString uid = UidToWrite(form, name, options.syntax, report);
    if (uid.IsEmpty())
    {
        return STATUS_UNREADABLE;
    }
    CLossReport losses;
    losses.AddReadNotes(object);
    if (form.syntax == SYNTAX_IMPLICIT_LITTLE && options.syntax != SYNTAX_IMPLICIT_LITTLE && !form.compressed)
    {
        SetPixelDataVr(object.ElementStore(), name, report);
    }
    Rewrite(object, form, {uid, options.syntax, options.output}, name, losses, report);
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
                "The syntax to write: implicit or explicit VR little endian, "
                "or explicit VR big endian",
                CVerb::ENeed::Required);
    verb.Text("IN", options->input, "File to read; '-' is standard input");
    verb.Text("OUT", options->output, "File to write; '-' is standard output");
    verb.MessageFlags();
    verb.Action([options](const CReport& report) { return Convert(*options, report); });
}
