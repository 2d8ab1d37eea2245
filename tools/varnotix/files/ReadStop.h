/// Why a read ended before the end of its input.
#pragma once

#include "console/Report.h"

#include <vector>

/// Empty after a read that came to its end.
struct SReadStop
{
    CString reason;
    std::vector<SReadTrial> trials; ///< The failed attempts, for --verbose.

    bool IsEmpty() const { return reason.IsEmpty(); }
};

/// The stop of an object that was read by the standard stream rules.
/// @param file what it was read from.
SReadStop StopOf(const CDcmIOD& object, CFile& file);

/// True when the file begins as DICOM files do (PS3.10 section 7.1), with or without a preamble.
bool HasPrefix(CFile& file);
