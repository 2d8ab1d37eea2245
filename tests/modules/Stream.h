// A way through a stream for the values of a module or sequence.
#pragma once

#include "Varnotix/element/DcmElementSet.h"

/// The set's values as a stream of implicit little endian brings them back, inside a sequence item.
void WriteAndRead(const CDcmElementSet& values, CDcmElementSet& target);
