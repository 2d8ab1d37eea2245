/// Attributes as readable lines.
#pragma once

#include "text/CharacterSet.h"

/// The name that the dictionary gives an attribute, its tag and its VR.
CString AttributeName(const CDcmElement& element);

/// The value in one line, in UTF-8; long lists and bytes are cut and counted. Empty for a sequence, whose items are
/// shown separately.
CString ValueText(const CDcmElement& element, const CCharacterSet& characters);

/// A text in UTF-8 for a terminal: control characters are shown as dots, so that no value can steer it.
std::string Printable(std::string text);
