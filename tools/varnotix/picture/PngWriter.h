/// Pictures as PNG files.
#pragma once

#include "picture/Picture.h"

/// False in a build that has neither a PNG library nor the Windows Imaging Component.
bool HasPngWriter();

/// Encodes the picture as a PNG file of its depth.
/// @return empty, or why it could not be encoded.
CString EncodePng(const SPicture& picture, std::vector<BYTE>& file);
