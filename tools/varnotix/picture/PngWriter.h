/// Pictures as PNG files.
#pragma once

#include "picture/Picture.h"

/// False in a build without the PNG library.
bool HasPngWriter();

/// Encodes the picture as a PNG file.
/// @return empty, or why it could not be encoded.
CString EncodePng(const SPicture& picture, std::vector<BYTE>& file);
