/// Where the text files with facts of the standard are found, and how they are read.
#pragma once

#include "Varnotix/platform/Export.h"
#include "Varnotix/platform/String.h"

#include <functional>
#include <string_view>

namespace Varnotix
{

/// Hands out the lines of a data file's text, which end at CR LF or LF.
/// @param takeLine called for each line, in order, without its end.
VARNOTIX_EXPORT void ReadDataLines(std::string_view text, const std::function<void(std::string_view)>& takeLine);

/// Reads a data file line by line, as ReadDataLines does its text.
/// @param name the bare file name; see CDcmRegistry for the places that are searched.
/// @return the path that was read; empty when no such file can be opened. No fault is reported.
VARNOTIX_EXPORT CString ReadDataFile(const CString& name, const std::function<void(std::string_view)>& takeLine);

} // namespace Varnotix
