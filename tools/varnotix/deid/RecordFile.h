/// The report of a run: a line of JSON for each input.
#pragma once

#include "console/Console.h"
#include "deid/DeidRecord.h"
#include "files/OutputFile.h"

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

/// Writes the lines in the order of the inputs. The file appears when it is complete.
class CRecordFile
{
public:
    /// Begins the file. Throws CWriteFailure.
    void Open(const CString& path);

    /// Adds a line. Nothing happens before Open. Several threads may add them; throws CWriteFailure, as the console's
    /// Do.
    /// @param console of the input's job.
    void Add(const SDeidOutcome& outcome, CConsole& console);

    /// Throws CWriteFailure.
    void Commit();

private:
    CString m_path;
    std::optional<COutputFile> m_file;
};
