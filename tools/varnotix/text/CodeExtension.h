/// Defined terms of the Specific Character Set, and escape sequences (PS3.3 tables C.12-2 to C.12-5).
#pragma once

#include "text/CodeTable.h"

#include <vector>

/// How code extensions select a set.
struct SEscape
{
    std::string_view sequence; ///< With the escape character.
    ECodeSet set;
    bool isUpper; ///< The set takes the codes above 80H; otherwise those below.
};

/// The escape sequence that a text begins with; null for none.
const SEscape* EscapeAt(std::string_view text);

/// The escape sequence that selects a set; null where it has none.
const SEscape* EscapeOf(ECodeSet set);

/// What a defined term declares.
struct STermSets
{
    ECodeSet lower = ECodeSet::None;
    ECodeSet upper = ECodeSet::None;
    bool hasExtensions = false; ///< The term begins with "ISO 2022".
};

/// @return false for a text that is not a defined term.
bool FindTerm(std::string_view term, STermSets& sets);
