/// Numbers in streams, and the byte swapping of big endian values.
#pragma once

#include "Varnotix/element/DcmElement.h"

#include <algorithm>

namespace Varnotix
{

inline WORD Word(const BYTE* bytes, bool bigEndian)
{
    return bigEndian ? static_cast<WORD>((bytes[0] << 8) | bytes[1]) : static_cast<WORD>(bytes[0] | (bytes[1] << 8));
}

inline DWORD DoubleWord(const BYTE* bytes, bool bigEndian)
{
    const DWORD first = Word(bytes, bigEndian);
    const DWORD second = Word(bytes + 2, bigEndian);
    return bigEndian ? (first << 16U) | second : first | (second << 16U);
}

inline void PutWord(BYTE* bytes, DWORD value, bool bigEndian)
{
    bytes[bigEndian ? 1 : 0] = static_cast<BYTE>(value);
    bytes[bigEndian ? 0 : 1] = static_cast<BYTE>(value >> 8U);
}

inline void PutDoubleWord(BYTE* bytes, DWORD value, bool bigEndian)
{
    PutWord(bytes + (bigEndian ? 2 : 0), value & 0xFFFFU, bigEndian);
    PutWord(bytes + (bigEndian ? 0 : 2), value >> 16U, bigEndian);
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
