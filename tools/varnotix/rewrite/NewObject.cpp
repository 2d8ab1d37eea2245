#include "rewrite/NewObject.h"

#include "rewrite/Rewrite.h"

int WriteNewObject(CDcmIOD& object, const SNewTarget& target, const CString& name, const CReport& report)
{
    SObjectForm form = FormOf(object);
    form.syntax = SYNTAX_EXPLICIT_LITTLE; // Its elements have their VRs.
    int syntax = target.syntax;
    if (syntax == SYNTAX_UNKNOWN)
    {
        syntax = form.compressed ? SYNTAX_UNKNOWN : Varnotix::SyntaxOfUid(form.transferSyntax);
        syntax = syntax == SYNTAX_UNKNOWN ? static_cast<int>(SYNTAX_EXPLICIT_LITTLE) : syntax;
    }
    const CString& named = form.transferSyntax;
    const bool isOpen = target.syntax == SYNTAX_UNKNOWN && !named.IsEmpty();
    // Without a wanted syntax, that compressed frames keep theirs is no news.
    const bool keepsUid = isOpen && (form.compressed || Varnotix::IsDeflatedUid(named));
    const CString uid = keepsUid ? named : UidToWrite(form, name, syntax, report);
    if (uid.IsEmpty())
    {
        return STATUS_UNREADABLE;
    }
    if (syntax != SYNTAX_IMPLICIT_LITTLE && !form.compressed)
    {
        SetPixelDataVr(object.ElementStore(), name, report);
    }
    if (!MayWrite(object, uid, target.isForced, name, report))
    {
        return STATUS_UNWRITTEN;
    }
    ReportMetaMismatch(object, name, report);
    if (isOpen && named != uid)
    {
        report.Say(name + ": " + TagAndName(Varnotix::Tag::kTransferSyntaxUid) + ": " + named + " replaced by " + uid);
    }
    CLossReport losses;
    STarget rewritten{uid, syntax, target.output};
    rewritten.isForced = target.isForced;
    Rewrite(object, form, rewritten, name, losses, report);
    return STATUS_DONE;
}
