/// What a user may have meant by a word that is not known.
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The word that the fewest changed, missing, added and swapped letters lead to; a word that begins with the unknown
/// one is nearer than any other. Case does not count.
/// @return empty when more than half of the letters would be others.
std::string NearestWord(std::string_view unknown, const std::vector<std::string>& words);
