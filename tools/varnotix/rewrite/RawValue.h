/// Values that were set, as the bytes that a write makes of them.
#pragma once

#include "Varnotix/Varnotix.h"

/// The element's value as it is written in little endian.
CByteArray EncodedValue(CDcmElement& element);

/// Gives the elements whose values were set typed the raw bytes of these values, at every depth: a rewrite is compared
/// by raw bytes.
void GiveRawValues(CDcmElementSet& set);
