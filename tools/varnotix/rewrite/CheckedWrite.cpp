#include "rewrite/CheckedWrite.h"

namespace
{

void Refuse(const CString& reason)
{
    throw CWriteFailure(std::string(reason.View()));
}

} // namespace

void WriteChecked(CDcmIOD& object, const std::vector<SSnapshot>& before, const CString& input, const SRewrite& rewrite,
                  CFile& file, CLossReport& losses, CDcmIOD& written)
{
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
