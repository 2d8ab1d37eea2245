/// The attributes that anonymisation replaces or removes.
#pragma once

#include "Varnotix/platform/Export.h"

/// A tag as two texts of four hexadecimal digits.
struct SIdentifyingTag
{
    const char* group;   ///< Four hexadecimal digits.
    const char* element; ///< Four hexadecimal digits.
};

/// How many attributes there are.
inline constexpr int kIdentifyingTagCount = 32;

/// The fixed list, in the order in which CDcmIOD::Anonymize55 sets the elements.
extern VARNOTIX_EXPORT const SIdentifyingTag kIdentifyingTags[kIdentifyingTagCount];
