/// Standard input and output as streams of bytes.
#pragma once

#include "Varnotix/Varnotix.h"

#include <stdexcept>
#include <string_view>

/// An output could not be written; the text gives its name and the reason.
class CWriteFailure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Data could not be written to standard output. No verb goes on after that, so none catches it.
class COutputFailure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The reader of standard output has closed its end, and wants no more: an end without a message. It is no
/// std::exception, so that it passes what reports those.
struct SClosedPipe
{
};

/// Makes the standard streams carry bytes unchanged, and a closed pipe or a limit of file size a failed write instead
/// of the program's end. Closed streams stay unusable, whatever files are opened. Call it before using a stream or
/// file.
void PrepareStandardStreams();

/// Appends everything that standard input holds. Throws CMemoryException beyond 2^31-1 bytes, and CFileException when
/// reading fails.
void ReadStandardInput(CByteArray& bytes);

/// As ReadStandardInput, for a named pipe or a device.
void ReadPipe(const CString& path, CByteArray& bytes);

/// Writes to standard output, which buffers. Throws COutputFailure or SClosedPipe.
void WriteStandardOutput(std::string_view text);

/// Flushes standard output. Throws as WriteStandardOutput.
void FlushStandardOutput();

/// Shows a line on the terminal of standard error until something else is written.
void ShowPassingLine(std::string_view line);

/// Takes the line of ShowPassingLine away.
void ErasePassingLine();

/// Writes a line to standard error, in one call: lines of several programs on one terminal do not mix then.
void WriteStandardError(std::string_view line);
