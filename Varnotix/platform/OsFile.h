#pragma once

#include "Varnotix/platform/File.h"

// The system's files by their handles. Inside the library only; CFile adds the contract.
namespace OsFile
{
/// The value of a handle that is not open, on every system.
constexpr std::intptr_t kClosed = -1;

/// What went wrong: nothing when the cause is none.
struct Failure
{
    CFileException::Cause cause = CFileException::none;
    long error = 0;

    explicit operator bool() const noexcept { return cause != CFileException::none; }
};

struct OpenMode
{
    bool read;
    bool write;
    bool create;
    bool truncate;
};

Failure Open(const char* path, const OpenMode& mode, std::intptr_t& handle);
Failure Read(std::intptr_t handle, BYTE* buffer, UINT count, UINT& done);
Failure Write(std::intptr_t handle, const BYTE* buffer, UINT count);
Failure Seek(std::intptr_t handle, long long offset, UINT from, ULONGLONG& position);
Failure Length(std::intptr_t handle, ULONGLONG& length);
Failure SetLength(std::intptr_t handle, ULONGLONG length);
Failure Close(std::intptr_t handle);
} // namespace OsFile
