/// Numbers in streams, and the byte swapping of big endian values.
#pragma once

#include "Varnotix/element/DcmElement.h"

#include <algorithm>
#include <bit>
#include <cstring>

static_assert(std::endian::native == std::endian::little, "numbers are exchanged for big endian streams only");

namespace Varnotix
{

inline WORD Swapped(WORD value)
{
    return static_cast<WORD>((value << 8U) | (value >> 8U));
}

inline DWORD Swapped(DWORD value)
{
    return (value << 24U) | ((value & 0xFF00U) << 8U) | ((value >> 8U) & 0xFF00U) | (value >> 24U);
}

inline WORD Word(const BYTE* bytes, bool bigEndian)
{
    WORD value = 0;
    std::memcpy(&value, bytes, sizeof value);
    return bigEndian ? Swapped(value) : value;
}

inline DWORD DoubleWord(const BYTE* bytes, bool bigEndian)
{
    DWORD value = 0;
    std::memcpy(&value, bytes, sizeof value);
    return bigEndian ? Swapped(value) : value;
}

inline void PutWord(BYTE* bytes, DWORD value, bool bigEndian)
{
    const WORD word = static_cast<WORD>(value);
    const WORD put = bigEndian ? Swapped(word) : word;
    std::memcpy(bytes, &put, sizeof put);
}

inline void PutDoubleWord(BYTE* bytes, DWORD value, bool bigEndian)
{
    const DWORD put = bigEndian ? Swapped(value) : value;
    std::memcpy(bytes, &put, sizeof put);
}

/// Width in bytes of the numbers that a big endian stream holds in reverse; 1 for VRs that are not swapped.
inline std::size_t SwapWidth(int vr)
{
    switch (VrKind(vr))
    {
    case EVrKind::Words:
    case EVrKind::OtherWords:
        return 2;
    case EVrKind::Integers:
    case EVrKind::Floats:
        return 4;
    case EVrKind::Doubles:
        return 8;
    default:
        return 1;
    }
}

/// Copies bytes with every whole number of the given width reversed; the bytes of a partial last one stay in order.
inline void CopySwapped(const BYTE* from, std::size_t size, std::size_t width, BYTE* to)
{
    const std::size_t whole = size - size % width;
    for (std::size_t i = 0; i < whole; i += width)
    {
        std::reverse_copy(from + i, from + i + width, to + i);
    }
    std::copy(from + whole, from + size, to + whole);
}

} // namespace Varnotix
