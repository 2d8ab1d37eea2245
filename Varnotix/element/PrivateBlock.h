/// Private blocks: the ranges of private elements that an application reserves in a data set.
#pragma once

#include "Varnotix/element/DcmElementSet.h"

#include <optional>

namespace Varnotix
{

/// The private creator (gggg,00bb) that reserves the block of a private element (gggg,bbee) (PS3.5 section 7.8.1).
/// @param item the item of the set in which the element is; 0 for a set without items.
/// @return without blanks at its ends; empty for an element that is not private or whose block is not reserved.
VARNOTIX_EXPORT CString PrivateCreatorOf(const CDcmElementSet& set, int item, DWORD tag);

/// The tag (gggg,bbee) of a private element in the first block that a creator reserved.
/// @param item the item of the set in which to look; 0 for a set without items.
/// @param tag the group, and the element's number in its block in the low byte; other bits are ignored.
/// @param creator blanks at its ends do not count.
/// @return nothing for an even group and for a creator without a block in the group.
VARNOTIX_EXPORT std::optional<DWORD> FindPrivateTag(const CDcmElementSet& set, int item, DWORD tag,
                                                    std::string_view creator);

/// The first element of the tag in an item, or null.
/// @param item 0 for a set without items: then the first of all.
VARNOTIX_EXPORT CDcmElement* FindInSet(const CDcmElementSet& set, int item, DWORD tag);

} // namespace Varnotix
