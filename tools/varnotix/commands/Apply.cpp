#include "commands/Commands.h"
#include "files/Input.h"
#include "rewrite/Rewrite.h"
#include "run/InputRun.h"
#include "script/EditCommands.h"
#include "script/ScriptMerge.h"
#include "text/CharacterSet.h"

#include <algorithm>

namespace
{

constexpr const char* kFooter =
    "'varnotix dump FILE >SCRIPT', change values, 'varnotix apply SCRIPT FILE -o OUT'. Only lines that differ from\n"
    "what FILE itself prints are applied; all else is kept, including what the text does not carry. A line for an\n"
    "attribute that FILE lacks adds it, and so does '#ITEM=3' with an item that a sequence lacks; '[]' empties a\n"
    "value; a missing line changes nothing. Nothing is written when a line cannot be applied. OUT keeps the transfer "
    "syntax of FILE; OUT and FILE may be the same file.";

struct SApplyOptions
{
    CString script;
    SInputs inputs;
    CString output;
    bool force = false; // Also what other readers would refuse.
};

/// True for a text with characters beyond ASCII, all of them in UTF-8.
bool IsUtf8Text(std::string_view text)
{
    constexpr char32_t kLastOfAscii = 0x7F;
    bool isBeyond = false;
    for (char32_t character = 0; !text.empty(); isBeyond = isBeyond || character > kLastOfAscii)
    {
        if (!TakeUtf8(text, character))
        {
            return false;
        }
    }
    return isBeyond;
}

/// A script has the bytes of the object's character set. Most editors write UTF-8, which would give other texts.
void ReportUtf8(const CScriptMerge& merge, const CStringArray& lines, const CDcmIOD& object, const CString& script,
                const CReport& report)
{
    const CCharacterSet characters = CCharacterSet::Of(object.ElementStore(), 0, CCharacterSet());
    for (const CScriptMerge::SChange& change : merge.Changes())
    {
        if (!characters.IsUtf8() && IsUtf8Text(lines[change.line].View()))
        {
            report.Say(ScriptPlace(script, change.line) + ": the text is UTF-8, and the character set of the object " +
                       "is another one; 'varnotix set' converts texts");
        }
    }
}

CString Counted(int count, const char* one, const char* many)
{
    CString text;
    text.Format(count == 1 ? one : many, count);
    return text;
}

void ReportChanges(const CScriptMerge& merge, int commands, const CString& script, const CString& input,
                   const CReport& report)
{
    int added = 0;
    for (const CScriptMerge::SChange& change : merge.Changes())
    {
        added += change.isNew ? 1 : 0;
        report.Detail(ScriptPlace(script, change.line) + ": " + TagAndName(change.tag) +
                      (change.isNew ? " is added" : " is changed"));
    }
    const int changed = static_cast<int>(merge.Changes().size()) - added;
    report.Say(
        input + ": " + Counted(changed, "%d value changed", "%d values changed") + ", " +
        Counted(added, "%d attribute added", "%d attributes added") +
        (merge.AddedItems() == 0 ? CString() : ", " + Counted(merge.AddedItems(), "%d item added", "%d items added")) +
        (commands == 0 ? CString() : ", " + Counted(commands, "%d command followed", "%d commands followed")));
}

int ApplyOne(const CString& scriptName, const CStringArray& lines, bool force, const SInput& input,
             const CReport& report)
{
    const CString name = ShownName(input.path);
    CDcmIOD object;
    if (!ReadObject(input.path, object, report))
    {
        return STATUS_UNREADABLE;
    }
    const SObjectForm form = FormOf(object);
    STarget target{CString(), form.syntax, input.output, input.path, form.isBare, force};
    if (!target.staysBare)
    {
        target.uid = UidToKeep(form, name, report);
        if (target.uid.IsEmpty())
        {
            return STATUS_UNREADABLE;
        }
        if (!MayWrite(object, target.uid, force, name, report))
        {
            return STATUS_UNWRITTEN;
        }
    }
    CLossReport losses;
    losses.AddReadNotes(object);
    const CScriptMerge merge(lines, object);
    const CEditCommands edits(lines, merge.Commands(), object.ElementStore());
    for (const int command : edits.Others())
    {
        report.Say(ScriptPlace(scriptName, command) + ": the command has no effect on an existing object");
    }
    std::vector<SScriptFault> found = merge.Faults();
    found.insert(found.end(), edits.Faults().begin(), edits.Faults().end());
    const int faults = ReportFaults(scriptName, found, report);
    if (faults > 0)
    {
        report.Error("nothing is written, because " +
                     Counted(faults, "%d line cannot be applied", "%d lines cannot be applied"));
        return STATUS_UNREADABLE;
    }
    if (!edits.TransferSyntax().IsEmpty())
    {
        target.uid = edits.TransferSyntax();
        target.syntax = Varnotix::SyntaxOfUid(target.uid);
        target.staysBare = false;
    }
    const CString mismatch = edits.Count() > 0 ? PixelDataMismatch(object.ElementStore(), target.uid) : CString();
    if (!mismatch.IsEmpty())
    {
        report.Error(name + ": nothing is written: " + mismatch);
        return STATUS_UNREADABLE;
    }
    Rewrite(object, form, target, name, losses, report);
    ReportMetaMismatch(object, name, report);
    ReportUtf8(merge, lines, object, scriptName, report);
    ReportChanges(merge, edits.Count(), scriptName, name, report);
    return STATUS_DONE;
}

int Apply(SApplyOptions& options, const CReport& report)
{
    const std::vector<CString>& names = options.inputs.names;
    if (options.script == "-" && std::find(names.begin(), names.end(), "-") != names.end())
    {
        report.Error("SCRIPT, FILE: only one of them can be standard input");
        return STATUS_USAGE;
    }
    if (!PlaceOutputs(options.inputs, options.output, report))
    {
        return STATUS_USAGE;
    }
    CStringArray lines;
    if (!HasDataFiles(report, true) || !ReadScript(options.script, lines, report))
    {
        return STATUS_UNREADABLE;
    }
    const CString scriptName = ShownName(options.script);
    const auto apply = [&](const SJob& job)
    {
        return ReportWriteFailures(job.input.output, job.report,
                                   [&] { return ApplyOne(scriptName, lines, options.force, job.input, job.report); });
    };
    return RunInputs(options.inputs, report, "were not changed", apply);
}

} // namespace

void AddApply(CCommandLine& line)
{
    const auto options = std::make_shared<SApplyOptions>();
    CVerb verb = line.AddVerb("apply", "Change the values of a file that differ in a script", kFooter);
    verb.Text("SCRIPT", options->script, "Script to read; '-' is standard input");
    verb.Inputs(options->inputs, "Files to read; '-' is standard input");
    verb.Text("-o,--output", options->output, "File to write, or folder for several; '-' is standard output");
    verb.Flag("--force", options->force, "Write an OUT that other readers would refuse");
    verb.MessageFlags();
    verb.Action(options, Apply);
}
