/// Outputs that appear whole or not at all.
#pragma once

#include "console/StandardStreams.h"

#include <memory>

/// A file that is written under a temporary name in the same folder and renamed when it is committed.
///
/// Until then an old file stays, also when this object is destroyed uncommitted. Output to a device, a pipe or standard
/// output ("-"), which a rename cannot replace, is gathered in memory and written by the commit.
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

    /// Moves what was written to its final name. Throws CWriteFailure.
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
