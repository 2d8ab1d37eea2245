/// The exceptions of files, archives and memory.
#pragma once

#include "Varnotix/platform/Object.h"
#include "Varnotix/platform/String.h"

/// The base of the class library's exceptions. They are thrown by value and caught by reference, also across the border
/// of the library.
class VARNOTIX_EXPORT CException : public CObject
{
    DECLARE_DYNAMIC(CException)
    CException() = default;
    CException(const CException&) = default;
    CException& operator=(const CException&) = default;
    ~CException() override;
    /// A one-line message for users, without a line end.
    virtual CString GetErrorMessage() const;
};

/// Memory ran out, or the requested size is larger than any container can be.
class VARNOTIX_EXPORT CMemoryException : public CException
{
    DECLARE_DYNAMIC(CMemoryException)
    CMemoryException() = default;
    CMemoryException(const CMemoryException&) = default;
    CMemoryException& operator=(const CMemoryException&) = default;
    ~CMemoryException() override;
    CString GetErrorMessage() const override;
};

/// A file could not be opened, read, written or closed.
class VARNOTIX_EXPORT CFileException : public CException
{
    DECLARE_DYNAMIC(CFileException)
    /// Why it failed, as far as the system reports it.
    enum Cause
    {
        none,
        generic, ///< no other cause fits; see m_lOsError
        fileNotFound,
        badPath, ///< a part of the path is not a folder
        tooManyOpenFiles,
        accessDenied,
        invalidFile, ///< not a regular file, or not open
        diskFull,
        endOfFile,
        hardIO ///< the device failed
    };

    /// `operation` is the verb of the message: "open", "read", "write".
    explicit CFileException(Cause cause = none, long osError = 0, const CString& fileName = CString(),
                            const CString& operation = CString("use"));
    CFileException(const CFileException&) = default;
    CFileException& operator=(const CFileException&) = default;
    ~CFileException() override;
    /// For example: cannot open 'x': No such file or directory
    CString GetErrorMessage() const override;

    Cause m_cause;          ///< One of Cause.
    long m_lOsError;        ///< The system's own error number, 0 when there is none.
    CString m_strFileName;  ///< The file as the caller named it.
    CString m_strOperation; ///< The verb of the message.
};

/// An archive was used against its direction, or ended too early.
class VARNOTIX_EXPORT CArchiveException : public CException
{
    DECLARE_DYNAMIC(CArchiveException)
    /// How the archive was misused.
    enum Cause
    {
        none,
        generic,   ///< the archive is closed or has no file
        endOfFile, ///< fewer bytes left than a number needs
        readOnly,  ///< writing into a loading archive
        writeOnly  ///< reading from a storing archive
    };

    explicit CArchiveException(Cause cause = none);
    CArchiveException(const CArchiveException&) = default;
    CArchiveException& operator=(const CArchiveException&) = default;
    ~CArchiveException() override;
    CString GetErrorMessage() const override;

    Cause m_cause; ///< One of Cause.
};

namespace Varnotix
{

/// Throws CMemoryException. It is not inline, so that the templates that call it stay small.
[[noreturn]] VARNOTIX_EXPORT void ThrowMemoryException();

} // namespace Varnotix
