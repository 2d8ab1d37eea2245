#include "Varnotix/platform/File.h"

#include "Varnotix/platform/FileSearch.h"
#include "Varnotix/platform/OsFile.h"

#include <climits>

using namespace Varnotix;

IMPLEMENT_DYNAMIC(CFile, CObject)

namespace
{

void Check(const OsFile::SFailure& failure, const CString& path, const char* operation)
{
    if (failure)
    {
        throw CFileException(failure.cause, failure.error, path, operation);
    }
}

OsFile::SOpenMode ToMode(UINT flags)
{
    const bool create = (flags & CFile::modeCreate) != 0;
    OsFile::SOpenMode mode = {};
    mode.write = create || (flags & (CFile::modeWrite | CFile::modeReadWrite)) != 0;
    mode.read = (flags & CFile::modeReadWrite) != 0 || !mode.write;
    mode.create = create;
    mode.truncate = create && (flags & CFile::modeNoTruncate) == 0;
    return mode;
}

} // namespace

CFile::CFile() : m_handle(OsFile::kClosed) {}

CFile::CFile(LPCTSTR path, UINT flags) : CFile()
{
    CFileException error;
    if (!Open(path, flags, &error))
    {
        throw error;
    }
}

CFile::~CFile()
{
    if (IsOpen())
    {
        OsFile::Close(m_handle);
    }
}

bool CFile::Open(LPCTSTR path, UINT flags, CFileException* error)
{
    if (IsOpen())
    {
        OsFile::Close(m_handle);
        m_handle = OsFile::kClosed;
        m_path.Empty();
    }
    const OsFile::SOpenMode mode = ToMode(flags);
    CString opened = path;
    OsFile::SFailure failure = OsFile::Open(opened, mode, m_handle);
    const bool missing = failure.cause == CFileException::fileNotFound || failure.cause == CFileException::badPath;
    if (missing && !mode.create)
    {
        const CString found = FindPathNoCase(opened);
        if (!found.IsEmpty())
        {
            failure = OsFile::Open(found, mode, m_handle);
            opened = found;
        }
    }
    if (failure)
    {
        if (error != nullptr)
        {
            *error = CFileException(failure.cause, failure.error, path, mode.create ? "create" : "open");
        }
        return false;
    }
    m_path = opened;
    return true;
}

bool CFile::IsOpen() const noexcept
{
    return m_handle != OsFile::kClosed;
}

CString CFile::GetFilePath() const
{
    return m_path;
}

UINT CFile::Read(void* buffer, UINT count)
{
    UINT done = 0;
    Check(IsOpen() ? OsFile::Read(m_handle, static_cast<BYTE*>(buffer), count, done)
                   : OsFile::SFailure{CFileException::invalidFile, 0},
          m_path, "read");
    return done;
}

void CFile::Write(const void* buffer, UINT count)
{
    Check(IsOpen() ? OsFile::Write(m_handle, static_cast<const BYTE*>(buffer), count)
                   : OsFile::SFailure{CFileException::invalidFile, 0},
          m_path, "write");
}

ULONGLONG CFile::Seek(long long offset, UINT from)
{
    ULONGLONG position = 0;
    Check(IsOpen() ? OsFile::Seek(m_handle, offset, from, position) : OsFile::SFailure{CFileException::invalidFile, 0},
          m_path, "seek in");
    return position;
}

ULONGLONG CFile::GetPosition() const
{
    ULONGLONG position = 0;
    Check(IsOpen() ? OsFile::Seek(m_handle, 0, current, position) : OsFile::SFailure{CFileException::invalidFile, 0},
          m_path, "seek in");
    return position;
}

ULONGLONG CFile::GetLength() const
{
    ULONGLONG length = 0;
    Check(IsOpen() ? OsFile::Length(m_handle, length) : OsFile::SFailure{CFileException::invalidFile, 0}, m_path,
          "measure");
    return length;
}

void CFile::SetLength(ULONGLONG length)
{
    const bool fits = length <= static_cast<ULONGLONG>(LLONG_MAX);
    Check(!IsOpen() ? OsFile::SFailure{CFileException::invalidFile, 0}
          : !fits   ? OsFile::SFailure{CFileException::diskFull, 0}
                    : OsFile::SetLength(m_handle, length),
          m_path, "resize");
    if (GetPosition() > length)
    {
        Seek(0, end);
    }
}

void CFile::Flush() {}

void CFile::Close()
{
    if (IsOpen())
    {
        const OsFile::SFailure failure = OsFile::Close(m_handle);
        const CString path = m_path;
        m_handle = OsFile::kClosed;
        m_path.Empty();
        Check(failure, path, "close");
    }
}

const BYTE* CFile::GetBufferPtr() const
{
    return nullptr;
}
