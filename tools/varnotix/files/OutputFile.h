/// Outputs that appear whole or not at all.
#pragma once

#include "console/StandardStreams.h"

#include <memory>

/// A file that is written under a temporary name beside its place and takes the place only when it is committed.
///
/// Until then the old file stays, and it stays for good when the object is destroyed uncommitted. A device or pipe is
/// no place for a rename: what goes there, and to standard output ("-"), is gathered in memory first.
class COutputFile
{
public:
    /// Throws CWriteFailure.
    explicit COutputFile(const CString& path);
    ~COutputFile();
    COutputFile(const COutputFile&) = delete;
    COutputFile& operator=(const COutputFile&) = delete;

    /// Where to write; it can be read as well.
    CFile& File() { return *m_file; }

    /// Puts what was written into its place. Throws CWriteFailure.
    void Commit();

private:
    void OpenTemporary();
    void Replace();
    void WriteThrough();

    CString m_path;
    CString m_shown; // As the user named it, for messages.
    CString m_temporary;
    std::unique_ptr<CFile> m_file;
};

/// The failure of a file as the failure to write an output of another name.
CWriteFailure WriteFailureOf(const CFileException& failure, const CString& shownName);
