/// Sequences that a stream holds as values of VR UN.
#pragma once

#include "Varnotix/Varnotix.h"

/// True for a value of VR UN that begins as the items of a sequence do.
bool HidesItems(const CDcmElement& element);

/// Makes sequences of the values of VR UN that are items in implicit VR (PS3.5 section 6.2.2), at every depth. Values
/// that cannot be read as items stay as they are.
void ShowHiddenItems(CDcmElementSet& store);
