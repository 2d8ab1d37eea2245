/// Writing objects that were not read from a stream.
#pragma once

#include "console/Report.h"

/// How and where to write.
struct SNewTarget
{
    int syntax;            ///< See ESyntax; SYNTAX_UNKNOWN: what the object names, or explicit VR little endian.
    const CString& output; ///< A path, or "-" for standard output.
    bool isForced = false; ///< Also what other readers would refuse.
};

/// Writes an object with complete file meta information, and reports what was lost. Throws as Rewrite.
/// @return STATUS_UNREADABLE when the object cannot be written in the wanted syntax, STATUS_UNWRITTEN when other
///         readers would refuse it; a message gave the reason.
int WriteNewObject(CDcmIOD& object, const SNewTarget& target, const CString& name, const CReport& report);
