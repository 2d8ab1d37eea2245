/// Lines of scripts that cannot be followed.
#pragma once

#include "console/Report.h"

#include <vector>

struct SScriptFault
{
    int line = 0; ///< Index of the line.
    CString what; ///< The reason.
};

/// Names the place of a line as compilers do: "script.asl:12".
CString ScriptPlace(const CString& script, int line);

/// Reports the first fault of each line, in the order of the lines.
/// @return how many lines have faults.
int ReportFaults(const CString& script, std::vector<SScriptFault> faults, const CReport& report);
