/// Encoded bytes of values that were set.
#pragma once

#include "Varnotix/Varnotix.h"

/// The element's value as it is written in little endian.
CByteArray EncodedValue(CDcmElement& element);

/// Encodes the raw bytes of elements that only have typed values, at every depth: a rewrite is compared by raw bytes.
void EncodeRawValues(CDcmElementSet& set);
