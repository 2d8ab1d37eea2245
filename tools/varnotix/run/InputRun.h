/// Runs a verb over its inputs, on one thread or on many.
#pragma once

#include "console/Console.h"
#include "files/Inputs.h"

#include <functional>

/// One input of a run, and where its job prints. With several jobs at a time, a job prints to its own console, whose
/// text appears in the order of the inputs; so a job prints through these only, never to standard output itself.
struct SJob
{
    const SInput& input;
    CConsole& console;
    const CReport& report; ///< Prints on the console.
};

/// What the jobs of a run gave.
struct SRunResult
{
    int status = STATUS_DONE; ///< The worst of all inputs.
    int inputs = 0;           ///< Without those that were skipped.
    int failed = 0;           ///< Inputs with a status of STATUS_UNREADABLE or worse.
    int skipped = 0;          ///< Files in folders that are not DICOM.
};

/// Does a job for every input, SInputs::jobs at a time, and reports inputs that have faults. Exceptions of a job that
/// reads a file, or needs memory, become its message and STATUS_UNREADABLE; others end the run.
///
/// At any time only a few inputs per thread are in work or wait for their turn to print. Where the output goes to a
/// folder, the folders of an output exist when its job begins. By the classic rules inputs are read one after another,
/// because each read begins by emptying what the dictionary learned.
/// @param job gets each input, possibly on a thread of its own; it returns an exit status.
SRunResult RunJobs(const SInputs& inputs, const CReport& report, const std::function<int(const SJob&)>& job);

/// As RunJobs, and reports at the end how many inputs failed and how many were skipped.
/// @param failure says it of inputs: "could not be read".
/// @return the exit status: the worst of all inputs, STATUS_UNREADABLE when the folders hold no DICOM file.
int RunInputs(const SInputs& inputs, const CReport& report, const char* failure,
              const std::function<int(const SJob&)>& job);
