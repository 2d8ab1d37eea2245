/// The integer types of the interfaces.
#pragma once

#include <cstdint>

/// 8 bits without sign.
using BYTE = std::uint8_t;
/// 16 bits without sign.
using WORD = std::uint16_t;
#if defined(_WIN32)
/// 32 bits without sign: the one name for the `unsigned long` of the interfaces.
using DWORD = unsigned long;
#else
/// 32 bits without sign: `unsigned long` has 64 bits on most other systems, so the name means a fixed width.
using DWORD = std::uint32_t;
#endif
/// The natural integer without sign, at least 32 bits.
using UINT = unsigned int;
/// 64 bits without sign: file sizes and offsets.
using ULONGLONG = unsigned long long;
/// Constant zero-terminated 8-bit text.
using LPCTSTR = const char*;

static_assert(sizeof(DWORD) == 4, "DWORD must have 32 bits");
static_assert(sizeof(int) >= 4, "sizes are held in int");

struct SPosition;
/// A place in a list or map; null means no place. Its value has a meaning only for the container that returned it.
using POSITION = SPosition*;
