/// Comparing values of a written object with those of its input.
#pragma once

#include "Varnotix/Varnotix.h"

#include <string_view>

/// True when the joined bytes of all frames are equal, however they are divided. The written ones may have one byte
/// more, which makes their number even.
bool SameFrameBytes(const CDcmFrameList& left, const CDcmFrameList& right);

/// True for equal values; the written one may have one byte more, which makes its length even.
bool SameButPadding(std::string_view before, std::string_view after);

/// The text with one or two sizes in place of "%llu".
CString Sizes(const char* format, std::size_t first, std::size_t second = 0);
