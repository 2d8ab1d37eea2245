/// Run length encoded frames as uncompressed ones.
#pragma once

#include "picture/ImageHeader.h"

/// Decodes a frame into samples as uncompressed pixel data has them: interleaved by pixel, low byte first.
/// @return empty, or why the frame holds no whole picture; the pixels are then of no use.
CString DecodeRleFrame(const SImageHeader& header, const CByteArray& frame, CByteArray& pixels);
