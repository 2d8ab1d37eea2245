/// Pictures as PNG files.
#pragma once

#include "picture/Picture.h"

/// False in a build that was made without the PNG library.
bool HasPngWriter();

/// Makes a PNG file of the picture.
/// @return empty, or why there is none.
CString EncodePng(const SPicture& picture, std::vector<BYTE>& file);
