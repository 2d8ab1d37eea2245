#include "FileMeta.h"
#include "Input.h"
#include "OutputFile.h"
#include "RewriteCheck.h"
#include "Verbs.h"

#include <new>

namespace
{

void Refuse(const CString& reason)
{
    throw CWriteFailure(std::string(reason.View()));
}

/// Writes the object and compares what was written with what was read. Throws CWriteFailure when the output would not
/// be what it says it is.
void WriteChecked(CDcmIOD& object, const CString& input, const SRewrite& rewrite, CFile& file, CLossReport& losses)
{
    const std::vector<SSnapshot> before = TakeSnapshot(object.ElementStore());
    CArchive out(&file, CArchive::store);
    object.Serialize(out);
    out.Close();
    const CString tooLong = FindTooLongValue(object.ElementStore());
    if (!tooLong.IsEmpty())
    {
        Refuse(input + ": " + tooLong);
    }
    file.Flush();
    file.Seek(0, CFile::begin);
    CDcmIOD written;
    CArchive in(&file, CArchive::load);
    written.Serialize(in);
    in.Close();
    if (written.GetCount() == 0 || written.IodSyntax() != rewrite.targetSyntax)
    {
        Refuse(input + ": nothing is written, because the output would not be readable as " +
               SyntaxName(rewrite.targetSyntax));
    }
    const CString fault = CheckRewrite(before, TakeSnapshot(written.ElementStore()), rewrite, losses);
    if (!fault.IsEmpty())
    {
        Refuse(input + ": nothing is written, because of an internal error: " + fault);
    }
}

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
    WriteChecked(object, name, {form.syntax, syntax, form.compressed}, target.File(), losses);
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
    try
    {
        return ConvertOne(input, output, syntax, report);
    }
    catch (const CWriteFailure& failure)
    {
        report.Error(failure.what());
    }
    catch (const CFileException& failure)
    {
        report.Error(WriteFailureOf(failure, output).what());
    }
    catch (const CMemoryException& failure)
    {
        report.Error(output + ": " + failure.GetErrorMessage());
    }
    catch (const std::bad_alloc&)
    {
        report.Error(output + ": " + CMemoryException().GetErrorMessage());
    }
    return STATUS_UNWRITTEN;
}
