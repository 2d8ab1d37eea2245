#include "rewrite/Rewrite.h"

void Rewrite(CDcmIOD& object, const SObjectForm& form, const STarget& target, const CString& input, CLossReport& losses,
             const CReport& report)
{
    SetFileMeta(object, form, input, target.uid, report);
    // An unknown UID in the object leaves the syntax to this one.
    object.IodSyntax(CDcmRegistry::Global().UidString(target.syntax));

    COutputFile file(target.output);
    CDcmIOD written;
    WriteChecked(object, TakeSnapshot(object.ElementStore()), input, {form.syntax, target.syntax, form.compressed},
                 file.File(), losses, written);
    file.Commit();
    losses.Print(input, report);
}
