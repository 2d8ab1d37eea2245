/// The report of a run: a line of JSON for each input.
#pragma once

#include "deid/DeidRecord.h"
#include "files/OutputFile.h"

#include <mutex>
#include <optional>

/// What became of an input.
struct SDeidOutcome
{
    CString input;
    CString output;     ///< Empty when nothing was written.
    CString state;      ///< "written", "refused" or "failed".
    CString reason;     ///< Why it was not written; empty otherwise.
    CString left;       ///< What a person has to look at; mostly empty.
    CDeidRecord record; ///< Empty when nothing was written.
};

/// Writes the lines; several threads may add them. The file appears when it is complete.
class CRecordFile
{
public:
    /// Begins the file. Throws CWriteFailure.
    void Open(const CString& path) { m_file.emplace(path); }

    /// Adds a line. Nothing happens before Open. Throws CFileException.
    void Add(const SDeidOutcome& outcome);

    /// Throws CWriteFailure.
    void Commit();

private:
    std::mutex m_mutex;
    std::optional<COutputFile> m_file;
};
