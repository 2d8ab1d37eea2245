#include "commands/Verbs.h"
#include "files/Input.h"
#include "rewrite/Rewrite.h"

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
    Rewrite(object, form, {uid, syntax, output}, name, losses, report);
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
