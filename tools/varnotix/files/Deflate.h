/// Deflated data sets (PS3.5 section A.5): raw deflate, RFC 1951.
#pragma once

#include "Varnotix/Varnotix.h"

/// Appends what the bytes inflate to, as far as that goes.
/// @param left receives how many bytes follow the deflated ones.
/// @return empty, or why the end was not reached: the bytes are cut off or damaged, or give more than their size
/// allows.
CString Inflate(const BYTE* bytes, std::size_t size, CFile& out, std::size_t& left);

/// Appends the deflated bytes, and a zero byte where their number is odd.
void Deflate(const BYTE* bytes, std::size_t size, CFile& out);
