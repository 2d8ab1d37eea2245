#if !defined(_WIN32)

#include "Varnotix/platform/OsFile.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Varnotix
{

namespace
{

/// The most that one call is asked for: every system takes this much.
constexpr UINT kMaxChunk = 1u << 30;

OsFile::SFailure FromErrno(int error)
{
    CFileException::Cause cause = CFileException::generic;
    switch (error)
    {
    case ENOENT:
        cause = CFileException::fileNotFound;
        break;
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
        cause = CFileException::badPath;
        break;
    case EMFILE:
    case ENFILE:
        cause = CFileException::tooManyOpenFiles;
        break;
    case EACCES:
    case EPERM:
    case EROFS:
    case ETXTBSY:
        cause = CFileException::accessDenied;
        break;
    case EISDIR:
    case EBADF:
    case ENXIO:
    case ENODEV:
        cause = CFileException::invalidFile;
        break;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        cause = CFileException::diskFull;
        break;
    case EIO:
        cause = CFileException::hardIO;
        break;
    default:
        break;
    }
    return {cause, error};
}

int ToFd(std::intptr_t handle)
{
    return static_cast<int>(handle);
}

} // namespace

OsFile::SFailure OsFile::Open(const char* path, const SOpenMode& mode, std::intptr_t& handle)
{
    // Without O_NONBLOCK the opening of a pipe would wait for its other side.
    int flags = O_NONBLOCK | O_CLOEXEC | O_NOCTTY;
    flags |= mode.write ? (mode.read ? O_RDWR : O_WRONLY) : O_RDONLY;
    flags |= mode.create ? O_CREAT : 0;
    flags |= mode.truncate ? O_TRUNC : 0;
    int fd = -1;
    do
    {
        fd = ::open(path, flags, 0666);
    } while (fd < 0 && errno == EINTR);
    if (fd < 0)
    {
        return FromErrno(errno);
    }
    struct stat status = {};
    if (::fstat(fd, &status) != 0)
    {
        const int error = errno;
        ::close(fd);
        return FromErrno(error);
    }
    if (!S_ISREG(status.st_mode))
    {
        if (mode.read)
        {
            ::close(fd);
            return {CFileException::invalidFile, S_ISDIR(status.st_mode) ? EISDIR : 0};
        }
        ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    }
    handle = fd;
    return {};
}

OsFile::SFailure OsFile::Read(std::intptr_t handle, BYTE* buffer, UINT count, UINT& done)
{
    done = 0;
    while (done < count)
    {
        const ssize_t got = ::read(ToFd(handle), buffer + done, std::min(count - done, kMaxChunk));
        if (got < 0 && errno == EINTR)
        {
            continue;
        }
        if (got < 0)
        {
            return FromErrno(errno);
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
        const ssize_t put = ::write(ToFd(handle), buffer + done, std::min(count - done, kMaxChunk));
        if (put < 0 && errno != EINTR)
        {
            return FromErrno(errno);
        }
        if (put == 0)
        {
            return {CFileException::diskFull, 0};
        }
        done += put > 0 ? static_cast<UINT>(put) : 0;
    }
    return {};
}

OsFile::SFailure OsFile::Seek(std::intptr_t handle, long long offset, UINT from, ULONGLONG& position)
{
    const int whence = from == CFile::begin ? SEEK_SET : from == CFile::current ? SEEK_CUR : SEEK_END;
    const off_t place = ::lseek(ToFd(handle), static_cast<off_t>(offset), whence);
    if (place < 0)
    {
        return errno == EINVAL ? SFailure{CFileException::endOfFile, EINVAL} : FromErrno(errno);
    }
    position = static_cast<ULONGLONG>(place);
    return {};
}

OsFile::SFailure OsFile::Length(std::intptr_t handle, ULONGLONG& length)
{
    struct stat status = {};
    if (::fstat(ToFd(handle), &status) != 0)
    {
        return FromErrno(errno);
    }
    length = static_cast<ULONGLONG>(status.st_size);
    return {};
}

OsFile::SFailure OsFile::SetLength(std::intptr_t handle, ULONGLONG length)
{
    return ::ftruncate(ToFd(handle), static_cast<off_t>(length)) == 0 ? SFailure{} : FromErrno(errno);
}

OsFile::SFailure OsFile::Close(std::intptr_t handle)
{
    // After EINTR the descriptor is gone all the same; closing it again could hit a file of another thread.
    return ::close(ToFd(handle)) == 0 || errno == EINTR ? SFailure{} : FromErrno(errno);
}

} // namespace Varnotix

#endif
