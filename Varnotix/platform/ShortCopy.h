/// Copies of few bytes.
#pragma once

#include "Varnotix/platform/Types.h"

#include <cstddef>
#include <cstring>

namespace Varnotix
{

/// How many bytes CopyShort can copy.
inline constexpr std::size_t kLongestShortCopy = 32;

/// Copies so many bytes from each end that they meet in the middle.
template <std::size_t HALF>
void CopyBothEnds(const BYTE* from, std::size_t size, BYTE* to)
{
    std::memcpy(to, from, HALF);
    std::memcpy(to + size - HALF, from + size - HALF, HALF);
}

/// Copies at most kLongestShortCopy bytes to another place. Most values of elements are short, and a call of memcpy
/// takes longer than the moves that compilers make of copies whose sizes they know.
inline void CopyShort(const BYTE* from, std::size_t size, BYTE* to)
{
    if (size >= 16)
    {
        CopyBothEnds<16>(from, size, to);
    }
    else if (size >= 8)
    {
        CopyBothEnds<8>(from, size, to);
    }
    else if (size >= 4)
    {
        CopyBothEnds<4>(from, size, to);
    }
    else if (size >= 2)
    {
        CopyBothEnds<2>(from, size, to);
    }
    else if (size == 1)
    {
        *to = *from;
    }
}

} // namespace Varnotix
