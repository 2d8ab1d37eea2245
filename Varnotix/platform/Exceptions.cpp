#include "Varnotix/platform/Exceptions.h"

#include <system_error>

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CMemoryException, CException)
IMPLEMENT_DYNAMIC(CFileException, CException)
IMPLEMENT_DYNAMIC(CArchiveException, CException)

CException::~CException() = default;
CMemoryException::~CMemoryException() = default;
CFileException::~CFileException() = default;
CArchiveException::~CArchiveException() = default;

void Varnotix::ThrowMemoryException()
{
    throw CMemoryException();
}

CString CException::GetErrorMessage() const
{
    return "unknown failure";
}

CString CMemoryException::GetErrorMessage() const
{
    return "out of memory";
}

CFileException::CFileException(Cause cause, long osError, const CString& fileName, const CString& operation)
    : m_cause(cause), m_lOsError(osError), m_strFileName(fileName), m_strOperation(operation)
{
}

CString CFileException::GetErrorMessage() const
{
    // The library has its own texts, so that a message reads the same on every system and in every language setting.
    CString reason;
    switch (m_cause)
    {
    case none:
        reason = "no failure";
        break;
    case generic:
        reason = CString(std::system_category().message(static_cast<int>(m_lOsError)));
        break;
    case fileNotFound:
        reason = "No such file or directory";
        break;
    case badPath:
        reason = "Not a valid path";
        break;
    case tooManyOpenFiles:
        reason = "Too many open files";
        break;
    case accessDenied:
        reason = "Permission denied";
        break;
    case invalidFile:
        reason = "Not a regular file";
        break;
    case diskFull:
        reason = "No space left on device";
        break;
    case endOfFile:
        reason = "Outside the file";
        break;
    case hardIO:
        reason = "Input/output error";
        break;
    }
    CString message = "cannot " + m_strOperation;
    if (!m_strFileName.IsEmpty())
    {
        message += " '" + m_strFileName + "'";
    }
    return message + ": " + reason;
}

CArchiveException::CArchiveException(Cause cause) : m_cause(cause) {}

CString CArchiveException::GetErrorMessage() const
{
    switch (m_cause)
    {
    case none:
        return "no failure";
    case endOfFile:
        return "unexpected end of the stream";
    case readOnly:
        return "cannot write: the stream is open for reading";
    case writeOnly:
        return "cannot read: the stream is open for writing";
    case generic:
        break;
    }
    return "the stream is closed";
}
