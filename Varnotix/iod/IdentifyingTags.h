/// The attributes that anonymisation replaces or removes.
#pragma once

#include "Varnotix/platform/Export.h"
#include "Varnotix/platform/Types.h"

namespace Varnotix
{

/// How many attributes there are.
inline constexpr int kIdentifyingTagCount = 32;

/// Their tags, in the order in which CDcmIOD::Anonymize55 sets the elements.
extern VARNOTIX_EXPORT const DWORD kIdentifyingTags[kIdentifyingTagCount];

} // namespace Varnotix
