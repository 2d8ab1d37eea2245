#if defined(_WIN32)

#include "Varnotix/platform/FileSearch.h"
#include "files/FileKinds.h"

#include <algorithm>
#include <windows.h>

// The standard library's paths do not take program arguments in the encoding of the system; the system's calls do.

namespace
{

CString FullPath(const CString& path)
{
    char full[MAX_PATH] = {};
    const DWORD size = ::GetFullPathNameA(path, MAX_PATH, full, nullptr);
    CString text = size == 0 || size >= MAX_PATH ? path : CString(full);
    while (text.GetLength() > 1 && (text.Right(1) == "\\" || text.Right(1) == "/"))
    {
        text = text.Left(text.GetLength() - 1);
    }
    return text;
}

} // namespace

EFileKind FileKindOf(const CString& path)
{
    const DWORD attributes = ::GetFileAttributesA(path);
    if (attributes == INVALID_FILE_ATTRIBUTES)
    {
        return EFileKind::Missing;
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
    {
        return EFileKind::Folder;
    }
    return (attributes & FILE_ATTRIBUTE_DEVICE) != 0 ? EFileKind::Other : EFileKind::File;
}

bool IsSameFolder(const CString& left, const CString& right)
{
    return FileKindOf(left) == EFileKind::Folder && FullPath(left).CompareNoCase(FullPath(right)) == 0;
}

std::string FileKey(const CString& path)
{
    CString key = FullPath(path);
    key.MakeLower();
    return std::string(key.View());
}

CString ListFolder(const CString& folder, std::vector<CString>& names)
{
    CStringArray found;
    Varnotix::FindFiles(Varnotix::JoinPath(folder, "*"), found);
    for (const CString& name : found)
    {
        if (name != "." && name != "..")
        {
            names.push_back(name);
        }
    }
    std::sort(names.begin(), names.end(),
              [](const CString& left, const CString& right) { return left.View() < right.View(); });
    // Every folder that can be read holds "." and "..".
    return found.IsEmpty() ? CString("the folder cannot be read") : CString();
}

void CopyOwner(const CString&, const CString&)
{
    // A new file has the owner and the permissions that its folder gives.
}

bool IsFolderLink(const CString& path)
{
    const DWORD attributes = ::GetFileAttributesA(path);
    constexpr DWORD kLink = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & kLink) == kLink;
}

#endif
