/// Reading objects and scripts, with the reasons when they cannot be read.
#pragma once

#include "console/Report.h"

#include <functional>

/// False, with a message that tells how to mend it, when the data dictionary is missing, without which no stream can
/// be read. The UID table is asked for where an output names its transfer syntax.
bool HasDataFiles(const CReport& report, bool needsUids);

/// The file name as messages show it.
CString ShownName(const CString& path);

/// Does what reads an input, and turns every failure of it into a message.
/// @return what the action returns; false after a failure.
bool TellingReadFailures(const CString& path, const CReport& report, const std::function<bool()>& read);

/// Reads the object in a file, or on standard input for "-".
/// @return false, with a message that tells why, when there is no readable object.
bool ReadObject(const CString& path, CDcmIOD& object, const CReport& report);

/// Reads the lines of a script, on standard input for "-", without the byte order mark that some editors put first.
/// @return false, with a message that tells why, when it cannot be read.
bool ReadScript(const CString& path, CStringArray& lines, const CReport& report);
