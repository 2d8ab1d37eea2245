#include "rewrite/CheckedWrite.h"

#include "files/Deflate.h"
#include "rewrite/ExactCheck.h"

namespace
{

void Refuse(const CString& reason)
{
    throw CWriteFailure(std::string(reason.View()));
}

/// Where the data set begins: after preamble, "DICM", and a group 0002 that begins with its length.
std::size_t StartOfDataSet(const CMemFile& file)
{
    constexpr std::size_t kMetaStart = 132;
    constexpr std::size_t kGroupLengthSize = 12;
    const BYTE* length = file.GetBufferPtr() + kMetaStart + kGroupLengthSize - 4;
    return kMetaStart + kGroupLengthSize +
           (length[0] | std::size_t{length[1]} << 8U | std::size_t{length[2]} << 16U | std::size_t{length[3]} << 24U);
}

void WriteAndRead(CDcmIOD& object, CFile& file, CDcmIOD& written)
{
    CArchive out(&file, CArchive::store);
    object.Serialize(out);
    out.Close();
    file.Flush();
    file.Seek(0, CFile::begin);
    CArchive in(&file, CArchive::load);
    written.StreamRules(object.StreamRules());
    written.Serialize(in);
    in.Close();
}

bool IsDeflated(const CDcmIOD& object)
{
    const CDcmElement* uid = object.ElementStore().Find(Varnotix::Tag::kTransferSyntaxUid);
    return uid != nullptr && Varnotix::IsDeflatedUid(uid->JoinedText());
}

} // namespace

void WriteChecked(CDcmIOD& object, const std::vector<SSnapshot>& before, const CString& input, const SRewrite& rewrite,
                  CFile& file, CLossReport& losses, CDcmIOD& written)
{
    const bool isDeflated = IsDeflated(object);
    const bool isClassic = object.StreamRules() == STREAM_RULES_CLASSIC;
    CMemFile plain;
    WriteAndRead(object, isDeflated ? plain : file, written);
    const CString tooLong = isClassic ? FindTooLongValue(object.ElementStore()) : CString();
    if (!tooLong.IsEmpty())
    {
        Refuse(input + ": " + tooLong);
    }
    if (written.GetCount() == 0 || written.IodSyntax() != rewrite.targetSyntax || written.ReadStopped())
    {
        Refuse(input + ": nothing is written, because the output would not be readable as " +
               SyntaxName(rewrite.targetSyntax));
    }
    const std::vector<SSnapshot> after = TakeSnapshot(written);
    const CString fault = isClassic ? CheckRewrite(before, after, rewrite, losses)
                                    : CheckExactRewrite(before, after, rewrite.targetSyntax, losses);
    if (!fault.IsEmpty())
    {
        Refuse(input + ": nothing is written, because of an internal error: " + fault);
    }
    if (isDeflated)
    {
        const std::size_t start = StartOfDataSet(plain);
        file.Write(plain.GetBufferPtr(), static_cast<UINT>(start));
        Deflate(plain.GetBufferPtr() + start, static_cast<std::size_t>(plain.GetLength()) - start, file);
        file.Flush();
    }
}
