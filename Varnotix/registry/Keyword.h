/// Keywords: the names of attributes as programs and command lines write them.
#pragma once

#include "Varnotix/platform/Export.h"
#include "Varnotix/platform/String.h"
#include "Varnotix/platform/Types.h"

#include <optional>
#include <string_view>

namespace Varnotix
{

/// The keyword of an attribute (PS3.6 section 6), such as "PatientName".
/// @return empty for a tag that the dictionary file does not list, and for group lengths that have no keyword. Tags of
///         a repeating group have the keyword of that group.
VARNOTIX_EXPORT CString KeywordOf(DWORD tag);

/// The tag of a keyword; ASCII letters may have either case. A repeating group gives its first tag (6000,eeee); so do
/// the other attributes that share a keyword.
/// @return nothing for a text that is not a keyword of the dictionary file.
VARNOTIX_EXPORT std::optional<DWORD> TagOfKeyword(std::string_view keyword);

} // namespace Varnotix
