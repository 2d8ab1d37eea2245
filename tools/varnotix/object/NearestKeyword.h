/// Help for paths that have a slip in them.
#pragma once

#include "Varnotix/Varnotix.h"

#include <string_view>

/// The end of a message about a text that is not a path: the first word that is not a keyword, and the keyword nearest
/// to it.
/// @param text may go on after the path, with "=VALUE" or the like.
/// @return empty when each word is a keyword or a tag, or no keyword is near.
CString NearestKeywordHint(std::string_view text);
