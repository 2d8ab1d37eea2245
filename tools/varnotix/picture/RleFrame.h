/// Run length encoded frames as uncompressed ones.
#pragma once

#include "picture/ImageHeader.h"

/// Decodes a frame into samples as uncompressed pixel data has them: interleaved by pixel, low byte first.
/// @return empty, or why the frame is not complete; the pixels are then invalid.
CString DecodeRleFrame(const SImageHeader& header, const CByteArray& frame, CByteArray& pixels);
