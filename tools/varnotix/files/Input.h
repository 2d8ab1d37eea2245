/// Reading objects and scripts, with the reasons when they cannot be read.
#pragma once

#include "console/Report.h"

#include <functional>

/// Checks that the data dictionary is loaded, without which no stream can be read; reports how to fix it otherwise.
/// @param needsUids the UID table is needed too: the output names its transfer syntax.
bool HasDataFiles(const CReport& report, bool needsUids);

/// The file name as messages show it.
CString ShownName(const CString& path);

/// Runs an action that reads an input, and reports its exceptions.
/// @return what the action returns; false after a failure.
bool ReportReadFailures(const CString& path, const CReport& report, const std::function<bool()>& read);

/// Reads the object in a file, or on standard input for "-".
/// @return false, after a message with the reason, when there is no readable object.
bool ReadObject(const CString& path, CDcmIOD& object, const CReport& report);

/// Reads the lines of a script, on standard input for "-", without the byte order mark that some editors put first.
/// @return false, after a message with the reason, when it cannot be read.
bool ReadScript(const CString& path, CStringArray& lines, const CReport& report);
