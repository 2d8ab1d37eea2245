/// Texts of an object that gets another character set.
#pragma once

#include "text/CharacterSet.h"

/// Encodes all texts of an object, or of an item, by another character set, at every depth; items that have a Specific
/// Character Set of their own stay as they are.
/// @param item number of the item in the set of a sequence; 0 for the object itself.
/// @return empty, or why a text cannot be converted. Some are converted then.
CString ConvertTextsOf(CDcmElementSet& set, int item, const CCharacterSet& from, const CCharacterSet& to);
