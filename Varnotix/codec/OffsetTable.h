/// The offset table of encapsulated pixel data (PS3.5 section A.4).
#pragma once

#include "Varnotix/element/DcmFrameList.h"

namespace Varnotix
{

/// True when each entry of the table that was read is the offset of a fragment, in ascending order.
/// @param unit in the stream each fragment takes a multiple of so many bytes.
bool OffsetTableFits(const CDcmFrameList& frames, DWORD unit);

} // namespace Varnotix
