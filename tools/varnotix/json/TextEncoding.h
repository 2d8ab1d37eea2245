/// Texts of an object, from UTF-8 into its character set.
#pragma once

#include "console/Report.h"

/// Encodes the texts of an object that are in UTF-8 in its Specific Character Set (0008,0005), and in those of items
/// that have one. An object that names none, and has texts beyond ASCII, becomes one in UTF-8. Throws CJsonFault for a
/// text that its character set lacks.
/// @param terms become the Specific Character Set, also of items that have one; empty: each stays as it is.
void EncodeTexts(CDcmElementSet& store, const CString& terms);
