#include "rewrite/Rewrite.h"

#include "files/Input.h"

#include <algorithm>

namespace
{

/// Records of a DICOMDIR name each other by their offsets in the file, which a change moves.
void RefuseChangedDirectory(const CString& source, const CString& input, CFile& written)
{
    CFile file;
    if (source.IsEmpty() || source == "-" || !file.Open(source, CFile::modeRead | CFile::shareDenyWrite) ||
        !(BytesOf(file) == BytesOf(written)))
    {
        throw CWriteFailure(std::string(input.View()) + kChangedDirectory);
    }
}

void Copy(const CString& from, const CString& to)
{
    CByteArray bytes;
    ReadBytes(from, bytes);
    COutputFile copy(to);
    copy.File().Write(bytes.GetData(), static_cast<UINT>(bytes.GetSize()));
    copy.Commit();
}

} // namespace

bool MayWrite(const CDcmIOD& object, const CString& uid, bool isForced, const CString& input, const CReport& report)
{
    const CString mismatch = PixelDataMismatch(object.ElementStore(), uid);
    if (mismatch.IsEmpty() || isForced)
    {
        return true;
    }
    report.Error(input + ": " + mismatch + "; other readers would refuse the output, which --force writes");
    return false;
}

void Rewrite(CDcmIOD& object, const SObjectForm& form, const STarget& target, const CString& input, CLossReport& losses,
             const CReport& report)
{
    const int syntax = target.syntax == kSyntaxDeflated ? static_cast<int>(SYNTAX_EXPLICIT_LITTLE) : target.syntax;
    if (!target.staysBare)
    {
        SetFileMeta(object, form, input, target.uid, report);
    }
    // An unknown UID in the object leaves the syntax to this one.
    object.IodSyntax(CDcmRegistry::Global().UidString(syntax));

    COutputFile file(target.output);
    CDcmIOD written;
    WriteChecked(object, TakeSnapshot(object), input, {form.syntax, syntax, form.compressed}, file.File(), losses,
                 written);
    if (form.isDirectory && !target.isForced)
    {
        RefuseChangedDirectory(target.source, input, file.File());
    }
    if (!target.backup.IsEmpty())
    {
        Copy(target.output, target.backup);
    }
    file.Commit();
    losses.Print(input, report);
}
