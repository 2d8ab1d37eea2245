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

/// Makes the standard streams carry bytes unchanged, and a closed pipe or a limit of file size a failed write instead
/// of the program's end. Call it before using either stream.
void PrepareStandardStreams();

/// Appends everything that standard input holds. Throws CMemoryException beyond 2^31-1 bytes, and CFileException when
/// reading fails.
void ReadStandardInput(CByteArray& bytes);

/// Writes to standard output, which buffers. Throws CWriteFailure.
void WriteStandardOutput(std::string_view text);

/// Flushes standard output. Throws CWriteFailure.
void FlushStandardOutput();
