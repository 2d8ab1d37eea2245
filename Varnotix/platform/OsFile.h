/// The system's files by their handles. CFile adds the contract for hosts.
#pragma once

#include "Varnotix/platform/File.h"

namespace Varnotix::OsFile
{

/// The value of a handle that is not open, on every system.
constexpr std::intptr_t kClosed = -1;

/// The outcome of a call; the cause none means success.
struct SFailure
{
    CFileException::Cause cause = CFileException::none;
    long error = 0;

    explicit operator bool() const noexcept { return cause != CFileException::none; }
};

/// How to open a file.
struct SOpenMode
{
    bool read;
    bool write;
    bool create;
    bool truncate;
};

SFailure Open(const char* path, const SOpenMode& mode, std::intptr_t& handle);
SFailure Read(std::intptr_t handle, BYTE* buffer, UINT count, UINT& done);
SFailure Write(std::intptr_t handle, const BYTE* buffer, UINT count);
SFailure Seek(std::intptr_t handle, long long offset, UINT from, ULONGLONG& position);
SFailure Length(std::intptr_t handle, ULONGLONG& length);
SFailure SetLength(std::intptr_t handle, ULONGLONG length);
SFailure Close(std::intptr_t handle);

} // namespace Varnotix::OsFile
