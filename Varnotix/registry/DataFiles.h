/// Where the text files with facts of the standard are found, and how they are read.
#pragma once

#include "Varnotix/platform/Export.h"
#include "Varnotix/platform/String.h"

#include <functional>
#include <string_view>

namespace Varnotix
{

/// Reads a data file line by line. Lines end at CR LF or LF.
/// @param name the bare file name; see CDcmRegistry for the places that are searched.
/// @param takeLine called for each line, in order, without its end.
/// @return the path that was read; empty when no such file can be opened. No fault is reported.
VARNOTIX_EXPORT CString ReadDataFile(const CString& name, const std::function<void(std::string_view)>& takeLine);

} // namespace Varnotix
