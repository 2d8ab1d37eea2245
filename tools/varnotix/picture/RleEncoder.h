/// Uncompressed frames as run length encoded ones.
#pragma once

#include "picture/ImageHeader.h"

/// Encodes a frame as DecodeRleFrame gives it: one segment for each byte of a sample, the high byte first, the rows of
/// each encoded by themselves (PS3.5 Annex G). The library's encoder overwrites its output where rows do not shrink.
CByteArray EncodeRleFrame(const SImageHeader& header, const CByteArray& pixels);
