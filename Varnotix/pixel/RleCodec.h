/// DICOM run length encoding of one frame (PS3.5 Annex G).
#pragma once

#include "Varnotix/platform/Arrays.h"

namespace Varnotix
{

/// What the codec needs to know of an image.
struct SRleImage
{
    int rows;
    int columns;
    int bitsAllocated;
    int photometric; ///< Number of the photometric interpretation (see CDcmRegistry::PhotoMetricEnum); -1 for others.
};

/// Decodes a frame: a header of 64 bytes and PackBits segments.
///
/// Every segment is decoded into (bits allocated / 8) x columns x rows bytes; what a segment lacks stays zero. One
/// segment becomes the pixels. Two segments of a monochrome or palette image are interleaved, first segment first, so
/// that 16-bit samples come out high byte first. Three segments of an RGB image are interleaved by pixel. Any other
/// segments are appended to what the array holds, at most sixteen.
///
/// The last segment ends 64 bytes before the end of the input, so its last runs may be missing; a caller that appends
/// 64 bytes to the input gets them. Nothing outside the input is read, whatever the header says.
/// Throws CMemoryException when the pixels would pass 2^31-1 bytes.
void RleDecode(const SRleImage& image, const CByteArray& rle, CByteArray& pixels);

/// Replaces a frame by its encoded form. Monochrome and palette frames become one segment, RGB frames (interleaved by
/// pixel) three; any other frame stays as it is. An RGB frame that is shorter than rows x columns x 3 gives empty
/// segments.
///
/// The encoder's room for a segment is the size of the segment's input. Input that does not shrink overwrites the
/// start of its own output, and the result is damaged: pass only data that compresses.
void RleEncode(const SRleImage& image, CByteArray& data);

} // namespace Varnotix
