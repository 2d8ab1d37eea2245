/// Values that are written as text, as the bytes of their VR.
#pragma once

#include "text/CharacterSet.h"

/// Makes a value field, padded to an even length. The backslash separates values where the VR has more than one.
///
/// Numbers are decimal; those of AT are tags or keywords, and the bytes of OB and UN pairs of hexadecimal digits, with
/// blanks between them.
/// @param text UTF-8; an empty one gives an empty field.
/// @param vr two letters.
SEncodedText EncodeValue(std::string_view text, std::string_view vr, const CCharacterSet& characters);
