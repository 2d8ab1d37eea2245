#include "commands/Verbs.h"
#include "files/Input.h"
#include "rewrite/Rewrite.h"
#include "script/ScriptMerge.h"

namespace
{

CString Counted(int count, const char* one, const char* many)
{
    CString text;
    text.Format(count == 1 ? one : many, count);
    return text;
}

void TellChanges(const CScriptMerge& merge, const CString& script, const CString& input, const CReport& report)
{
    int added = 0;
    for (const CScriptMerge::SChange& change : merge.Changes())
    {
        added += change.isNew ? 1 : 0;
        report.Detail(ScriptPlace(script, change.line) + ": " + TagAndName(change.tag) +
                      (change.isNew ? " is added" : " is changed"));
    }
    const int changed = static_cast<int>(merge.Changes().size()) - added;
    report.Say(input + ": " + Counted(changed, "%d value changed", "%d values changed") + ", " +
               Counted(added, "%d attribute added", "%d attributes added"));
}

int ApplyOne(const CString& script, const CString& input, const CString& output, const CReport& report)
{
    const CString scriptName = ShownName(script);
    const CString name = ShownName(input);
    CStringArray lines;
    CDcmIOD object;
    if (!ReadScript(script, lines, report) || !ReadObject(input, object, report))
    {
        return STATUS_UNREADABLE;
    }
    const SObjectForm form = FormOf(object);
    const CString uid = UidToKeep(form, name, report);
    if (uid.IsEmpty())
    {
        return STATUS_UNREADABLE;
    }
    CLossReport losses;
    losses.AddReadNotes(object);
    const CScriptMerge merge(lines, object.ElementStore());
    for (const int command : merge.Commands())
    {
        report.Say(ScriptPlace(scriptName, command) + ": commands have no effect on an object that is there");
    }
    const int faults = ReportFaults(scriptName, merge.Faults(), report);
    if (faults > 0)
    {
        report.Error("nothing is written, because " +
                     Counted(faults, "%d line cannot be applied", "%d lines cannot be applied"));
        return STATUS_UNREADABLE;
    }
    Rewrite(object, form, {uid, form.syntax, output}, name, losses, report);
    TellUnlikeMeta(object, name, report);
    TellChanges(merge, scriptName, name, report);
    return STATUS_DONE;
}

} // namespace

int Apply(const CString& script, const CString& input, const CString& output, const CReport& report)
{
    if (script == "-" && input == "-")
    {
        report.Error("SCRIPT, FILE: only one of them can be standard input");
        return STATUS_USAGE;
    }
    if (!HasDataFiles(report, true))
    {
        return STATUS_UNREADABLE;
    }
    return TellingFailures(output, report, [&] { return ApplyOne(script, input, output, report); });
}
