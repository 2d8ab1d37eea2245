/// The instances of the repeating groups that modules use unless a group is given (PS3.5 section 7.6).
#pragma once

#include "Varnotix/platform/Export.h"

namespace Varnotix
{

/// "5000", the first instance of the curve groups.
extern VARNOTIX_EXPORT const char* const kDefaultCurveGroup;

/// "6000", the first instance of the overlay groups.
extern VARNOTIX_EXPORT const char* const kDefaultOverlayGroup;

} // namespace Varnotix
