/// Frames of the JPEG 2000 transfer syntaxes, high-throughput ones included (ITU-T T.800 and T.814).
#pragma once

#include "codestream/Raster.h"

/// False in a build without OpenJPEG.
bool HasJpeg2000();

/// Decodes a frame; the codestream's own colour transform is undone. A JP2 file in its place is taken as well. Throws
/// CCodestreamFault when the codestream is damaged, does not fit the shape, or has more than 16 bits per sample.
void DecodeJpeg2000(const BYTE* bytes, std::size_t size, const SRasterShape& shape, SRaster& raster);
