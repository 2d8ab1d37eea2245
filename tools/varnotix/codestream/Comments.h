/// Texts that codestreams carry beside the pixels.
#pragma once

#include "Varnotix/Varnotix.h"

#include <string>

/// The comments and application data before the first scan or tile of a JPEG, JPEG-LS or JPEG 2000 codestream, one
/// after another with line feeds between; empty for other bytes.
std::string CommentsOf(const BYTE* bytes, std::size_t size);
