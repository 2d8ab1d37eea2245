/// The value lists of element lines, where these say more than their reader follows.
#pragma once

#include "script/ScriptTree.h"

/// How many values a list has.
int CountValues(std::string_view list);

/// True when all of a list is one value: of an attribute that takes one text, in which commas are part of the text.
bool IsSingleText(const CDcmElement& shape);

/// The one text of a list. The comma after it is not a part of it.
CDcmElement WithSingleText(const CDcmElement& shape, std::string_view list);

/// In an object that was made from a script, restores what the script's reader does not follow: single texts with
/// commas, which it divides into values, SS where the dictionary has US or SS, and later VRs. What something else than
/// their line has set stays.
/// @param around its lines, matched with the set. Their elements must not be used afterwards.
void RestoreLines(const SScriptLine& around, CDcmElementSet& set);
