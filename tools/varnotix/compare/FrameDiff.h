/// What differs between two Pixel Data elements.
#pragma once

#include "Varnotix/Varnotix.h"

/// @param leftCount, rightCount the numbers of frames that the data sets state, by which native pixel data is divided.
/// @return empty when the bytes of the frames are the same; otherwise such as "2 of 10 frames differ: 3 (12 of 512
///         bytes), 7 (1 of 512 bytes)".
CString CompareFrames(const CDcmFrameList& left, int leftCount, const CDcmFrameList& right, int rightCount);
