#if defined(_WIN32)

#include "Varnotix/platform/OsFile.h"

#include <algorithm>
#define WIN32_LEAN_AND_MEAN
#if !defined(NOMINMAX)
#define NOMINMAX
#endif
#include <windows.h>

namespace Varnotix
{

namespace
{

/// The most that one call is asked for: network drives refuse larger pieces.
constexpr UINT kMaxChunk = 1u << 24;

OsFile::SFailure FromSystem(DWORD error)
{
    CFileException::Cause cause = CFileException::generic;
    switch (error)
    {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
        cause = CFileException::fileNotFound;
        break;
    case ERROR_BAD_PATHNAME:
    case ERROR_INVALID_NAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_FILENAME_EXCED_RANGE:
        cause = CFileException::badPath;
        break;
    case ERROR_TOO_MANY_OPEN_FILES:
        cause = CFileException::tooManyOpenFiles;
        break;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
        cause = CFileException::accessDenied;
        break;
    case ERROR_INVALID_HANDLE:
        cause = CFileException::invalidFile;
        break;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        cause = CFileException::diskFull;
        break;
    case ERROR_HANDLE_EOF:
    case ERROR_NEGATIVE_SEEK:
        cause = CFileException::endOfFile;
        break;
    case ERROR_CRC:
    case ERROR_SEEK:
    case ERROR_READ_FAULT:
    case ERROR_WRITE_FAULT:
    case ERROR_IO_DEVICE:
        cause = CFileException::hardIO;
        break;
    default:
        break;
    }
    return {cause, static_cast<long>(error)};
}

HANDLE ToHandle(std::intptr_t handle)
{
    return reinterpret_cast<HANDLE>(handle);
}

LARGE_INTEGER ToLarge(long long value)
{
    LARGE_INTEGER large;
    large.QuadPart = value;
    return large;
}

} // namespace

OsFile::SFailure OsFile::Open(const char* path, const SOpenMode& mode, std::intptr_t& handle)
{
    const DWORD access = (mode.read ? GENERIC_READ : 0) | (mode.write ? GENERIC_WRITE : 0);
    const DWORD disposition = mode.truncate ? CREATE_ALWAYS : mode.create ? OPEN_ALWAYS : OPEN_EXISTING;
    const HANDLE opened = ::CreateFileA(path, access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, disposition,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE)
    {
        const DWORD error = ::GetLastError();
        const DWORD attributes = ::GetFileAttributesA(path);
        const bool isFolder = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        return isFolder ? SFailure{CFileException::invalidFile, static_cast<long>(error)} : FromSystem(error);
    }
    if (mode.read && ::GetFileType(opened) != FILE_TYPE_DISK)
    {
        ::CloseHandle(opened);
        return {CFileException::invalidFile, 0};
    }
    handle = reinterpret_cast<std::intptr_t>(opened);
    return {};
}

OsFile::SFailure OsFile::Read(std::intptr_t handle, BYTE* buffer, UINT count, UINT& done)
{
    done = 0;
    while (done < count)
    {
        DWORD got = 0;
        if (!::ReadFile(ToHandle(handle), buffer + done, std::min(count - done, kMaxChunk), &got, nullptr))
        {
            return FromSystem(::GetLastError());
        }
        if (got == 0)
        {
            break;
        }
        done += static_cast<UINT>(got);
    }
    return {};
}

OsFile::SFailure OsFile::Write(std::intptr_t handle, const BYTE* buffer, UINT count)
{
    UINT done = 0;
    while (done < count)
    {
        DWORD put = 0;
        if (!::WriteFile(ToHandle(handle), buffer + done, std::min(count - done, kMaxChunk), &put, nullptr))
        {
            return FromSystem(::GetLastError());
        }
        if (put == 0)
        {
            return {CFileException::diskFull, 0};
        }
        done += static_cast<UINT>(put);
    }
    return {};
}

OsFile::SFailure OsFile::Seek(std::intptr_t handle, long long offset, UINT from, ULONGLONG& position)
{
    const DWORD method = from == CFile::begin ? FILE_BEGIN : from == CFile::current ? FILE_CURRENT : FILE_END;
    LARGE_INTEGER place;
    if (!::SetFilePointerEx(ToHandle(handle), ToLarge(offset), &place, method))
    {
        return FromSystem(::GetLastError());
    }
    position = static_cast<ULONGLONG>(place.QuadPart);
    return {};
}

OsFile::SFailure OsFile::Length(std::intptr_t handle, ULONGLONG& length)
{
    LARGE_INTEGER size;
    if (!::GetFileSizeEx(ToHandle(handle), &size))
    {
        return FromSystem(::GetLastError());
    }
    length = static_cast<ULONGLONG>(size.QuadPart);
    return {};
}

OsFile::SFailure OsFile::SetLength(std::intptr_t handle, ULONGLONG length)
{
    // The system cuts at the file's position, which belongs to the caller and is put back.
    ULONGLONG before = 0;
    ULONGLONG ignored = 0;
    SFailure failure = Seek(handle, 0, CFile::current, before);
    if (!failure)
    {
        failure = Seek(handle, static_cast<long long>(length), CFile::begin, ignored);
    }
    if (!failure && !::SetEndOfFile(ToHandle(handle)))
    {
        failure = FromSystem(::GetLastError());
    }
    const SFailure restored = Seek(handle, static_cast<long long>(before), CFile::begin, ignored);
    return failure ? failure : restored;
}

OsFile::SFailure OsFile::Close(std::intptr_t handle)
{
    return ::CloseHandle(ToHandle(handle)) ? SFailure{} : FromSystem(::GetLastError());
}

} // namespace Varnotix

#endif
