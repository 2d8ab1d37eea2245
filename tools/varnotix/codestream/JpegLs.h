/// Frames of the JPEG-LS transfer syntaxes (ITU-T T.87).
#pragma once

#include "codestream/Raster.h"

/// False in a build without CharLS.
bool HasJpegLs();

/// Decodes a frame. Throws CCodestreamFault when the codestream is damaged or does not fit the shape.
void DecodeJpegLs(const BYTE* bytes, std::size_t size, const SRasterShape& shape, SRaster& raster);
