/// The decoders that DecodeJpeg chooses from.
#pragma once

#include "codestream/JpegStream.h"

/// True in a build with libjpeg-turbo. What it decodes is faster there, and progressive codings need it.
bool HasTurboJpeg();

/// Decodes a frame of eight bits by libjpeg-turbo. The raster has its shape and no samples yet.
void DecodeTurboJpeg(const BYTE* bytes, std::size_t size, SRaster& raster);

/// Decodes baseline and extended sequential frames of 8 and 12 bits, which libjpeg-turbo in its usual builds does not.
void DecodeSequentialJpeg(CJpegStream& stream, SRaster& raster);

/// Decodes lossless frames, whatever their predictor (Annex H).
void DecodeLosslessJpeg(CJpegStream& stream, SRaster& raster);
