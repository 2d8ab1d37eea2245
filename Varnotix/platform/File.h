/// Files of the system.
#pragma once

#include "Varnotix/platform/Exceptions.h"

/// A file of bytes with a position.
///
/// Contract:
/// - Failures throw CFileException; Open can hand the exception over instead.
/// - For reading only regular files are opened. A directory, pipe or device is refused with the cause invalidFile, and
///   opening one never waits.
/// - A path that does not open for reading as written is tried with '/' for '\', then component by component without
///   regard to case.
/// - The destructor closes without throwing. Call Close to see late write errors.
class VARNOTIX_EXPORT CFile : public CObject
{
    DECLARE_DYNAMIC(CFile)
    /// How to open; combine them with |.
    enum OpenFlags : UINT
    {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        modeCreate = 0x1000,     ///< create the file, or truncate an existing one
        modeNoTruncate = 0x2000, ///< with modeCreate: keep the content of an existing file
        shareDenyNone = 0x0040,  ///< these share and type flags are accepted and change nothing
        shareDenyWrite = 0x0020,
        shareExclusive = 0x0010,
        typeBinary = 0x8000
    };
    /// What an offset counts from.
    enum SeekPosition : UINT
    {
        begin,
        current,
        end
    };

    /// A closed file.
    CFile();
    /// Opens at once; throws CFileException.
    CFile(LPCTSTR path, UINT flags);
    ~CFile() override;
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;

    /// Opens; false on failure, with the reason in `error` unless that is null. An open file is closed first.
    bool Open(LPCTSTR path, UINT flags, CFileException* error = nullptr);
    /// True while a file of the system is open; a memory file has none.
    bool IsOpen() const noexcept;
    /// The path that was really opened; empty for a memory file and for a closed file.
    CString GetFilePath() const;

    /// Reads up to `count` bytes; fewer only at the end of the file.
    virtual UINT Read(void* buffer, UINT count);
    /// Writes all bytes or throws, with the cause diskFull, hardIO or another.
    virtual void Write(const void* buffer, UINT count);
    /// Moves the position and returns it, counted from the beginning. A place before the beginning throws; one after
    /// the end is allowed, and a later write fills the gap with zero bytes.
    virtual ULONGLONG Seek(long long offset, UINT from);
    virtual ULONGLONG GetPosition() const;
    virtual ULONGLONG GetLength() const;
    /// Truncates the file, or extends it with zero bytes. The position stays unless it would be after the new end.
    virtual void SetLength(ULONGLONG length);
    /// Passes everything written to the system.
    virtual void Flush();
    /// Closes; throws when the system reports an earlier write as failed. The file is closed even then.
    virtual void Close();
    /// The whole content of a memory file, valid until the next write; null for a file of the system.
    virtual const BYTE* GetBufferPtr() const;

private:
    std::intptr_t m_handle;
    CString m_path;
};
