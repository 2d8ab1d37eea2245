/// Value fields as the text that EncodeValue takes.
#pragma once

#include "text/CharacterSet.h"

/// The text from which EncodeValue makes these bytes again, but for padding.
/// @param bytes in little endian.
/// @return nothing for bytes that no text gives: bytes without a character, parts of numbers.
std::optional<std::string> DecodeValue(std::string_view bytes, std::string_view vr, const CCharacterSet& characters);
