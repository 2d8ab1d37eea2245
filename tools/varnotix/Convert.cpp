#include "CheckedWrite.h"
#include "FileMeta.h"
#include "Input.h"
#include "Verbs.h"

namespace
{

int ConvertOne(const CString& input, const CString& output, int syntax, const CReport& report)
{
    const CString name = ShownName(input);
    CDcmIOD object;
    if (!ReadObject(input, object, report))
    {
        return STATUS_UNREADABLE;
    }
    const SObjectForm form = FormOf(object);
    const CString uid = UidToWrite(form, name, syntax, report);
    if (uid.IsEmpty())
    {
        return STATUS_UNREADABLE;
    }
    CLossReport losses;
    losses.AddReadNotes(object);
    if (form.syntax == SYNTAX_IMPLICIT_LITTLE && syntax != SYNTAX_IMPLICIT_LITTLE && !form.compressed)
    {
        GivePixelDataItsVr(object.ElementStore(), name, report);
    }
    SetFileMeta(object, form, name, uid, report);
    // An unknown UID in the object leaves the syntax to this one.
    object.IodSyntax(CDcmRegistry::Global().UidString(syntax));

    COutputFile target(output);
    CDcmIOD written;
    WriteChecked(object, TakeSnapshot(object.ElementStore()), name, {form.syntax, syntax, form.compressed},
                 target.File(), losses, written);
    target.Commit();
    losses.Tell(name, report);
    return STATUS_DONE;
}

} // namespace

int Convert(const CString& input, const CString& output, int syntax, const CReport& report)
{
    if (!HasDataFiles(report, true))
    {
        return STATUS_UNREADABLE;
    }
    return TellingFailures(output, report, [&] { return ConvertOne(input, output, syntax, report); });
}
