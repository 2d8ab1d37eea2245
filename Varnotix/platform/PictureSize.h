/// The size of JPEG pictures.
#pragma once

#include "Varnotix/platform/Arrays.h"
#include "Varnotix/platform/String.h"

#include <cstddef>

namespace Varnotix
{

/// Reads width and height in pixels from the header of a JPEG picture. False, with both unchanged, for other data,
/// for a header that is cut short, and for a width or height of zero.
VARNOTIX_EXPORT bool ReadJpegSize(const BYTE* bytes, std::size_t count, int& width, int& height);

/// As ReadJpegSize for a file, whose bytes are handed over with the size. A file that does not open throws
/// CFileException.
VARNOTIX_EXPORT bool ReadPicture(const CString& path, CByteArray& bytes, WORD& width, WORD& height);

/// Hundredths of a millimetre in pixels at `dpi` dots per inch, rounded: (dpi * himetric + 1270) / 2540. A result that
/// an int cannot hold is clamped.
VARNOTIX_EXPORT int HimetricToPixels(int himetric, int dpi);

} // namespace Varnotix
