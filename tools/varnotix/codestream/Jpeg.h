/// Frames of the JPEG transfer syntaxes (ITU-T T.81).
#pragma once

#include "codestream/Raster.h"

/// Decodes a frame. Colours stay as the codestream has them, with chrominance brought to full size. Throws
/// CCodestreamFault when the codestream is damaged, does not fit the shape, or has a coding that is not supported.
void DecodeJpeg(const BYTE* bytes, std::size_t size, const SRasterShape& shape, SRaster& raster);
