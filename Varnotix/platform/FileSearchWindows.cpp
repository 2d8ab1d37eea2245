#if defined(_WIN32)

#include "Varnotix/platform/FileSearch.h"

#include <vector>
#define WIN32_LEAN_AND_MEAN
#if !defined(NOMINMAX)
#define NOMINMAX
#endif
#include <windows.h>

namespace Varnotix
{

namespace
{

/// Its address is inside this library. The address of a function may be that of a stub in the host.
const char kInsideLibrary = 0;

bool IsSeparator(char character)
{
    return character == '\\' || character == '/';
}

} // namespace

CString FindPathNoCase(const CString& path)
{
    return ::GetFileAttributesA(path) == INVALID_FILE_ATTRIBUTES ? CString() : CString(path.CText());
}

bool FindFiles(const CString& pattern, CStringArray& names)
{
    WIN32_FIND_DATAA entry = {};
    const HANDLE search = ::FindFirstFileA(pattern, &entry);
    if (search == INVALID_HANDLE_VALUE)
    {
        return false;
    }
    const int before = names.GetSize();
    try
    {
        do
        {
            names.Add(CString(entry.cFileName));
        } while (::FindNextFileA(search, &entry));
    }
    catch (...)
    {
        ::FindClose(search);
        throw;
    }
    ::FindClose(search);
    return names.GetSize() > before;
}

bool FileExists(const CString& path)
{
    const DWORD attributes = ::GetFileAttributesA(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

CString CurrentDirectory()
{
    std::vector<char> buffer(::GetCurrentDirectoryA(0, nullptr) + 1u);
    const DWORD length = ::GetCurrentDirectoryA(static_cast<DWORD>(buffer.size()), buffer.data());
    return length < buffer.size() ? CString(buffer.data(), static_cast<int>(length)) : CString();
}

CString LibraryDirectory()
{
    HMODULE module = nullptr;
    if (!::GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                              &kInsideLibrary, &module))
    {
        return CString();
    }
    char path[MAX_PATH + 1] = {};
    const DWORD length = ::GetModuleFileNameA(module, path, MAX_PATH);
    const CString file(path, length < MAX_PATH ? static_cast<int>(length) : 0);
    return file.Left(file.ReverseFind('\\'));
}

CString JoinPath(const CString& folder, const CString& name)
{
    const std::string_view part = name.View();
    const bool absolute = !part.empty() && (IsSeparator(part[0]) || (part.size() > 1 && part[1] == ':'));
    if (folder.IsEmpty() || absolute)
    {
        return name;
    }
    return IsSeparator(folder.View().back()) ? folder + name : folder + "\\" + name;
}

bool SyncFile(const CString& path)
{
    const HANDLE file = ::CreateFileA(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
    {
        return false;
    }
    const bool isSafe = ::FlushFileBuffers(file) != 0;
    ::CloseHandle(file);
    return isSafe;
}

bool ReplaceFileByRename(const CString& from, const CString& to)
{
    return ::MoveFileExA(from, to, MOVEFILE_REPLACE_EXISTING) != 0;
}

bool DeleteFileByPath(const CString& path)
{
    return ::DeleteFileA(path) != 0;
}

} // namespace Varnotix

#endif
