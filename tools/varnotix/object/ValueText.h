/// Attributes as readable lines.
#pragma once

#include "Varnotix/Varnotix.h"

/// The name that the dictionary gives an attribute, its tag and its VR.
CString AttributeName(const CDcmElement& element);

/// The value in one line; long lists and bytes are cut and counted. Control characters are shown as dots, so that no
/// value can steer a terminal. Empty for a sequence, whose items are shown separately.
CString ValueText(const CDcmElement& element);
