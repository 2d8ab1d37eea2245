/// Writing the tags of group FFFE that delimit items and sequences (PS3.5 section 7.5).
#pragma once

#include "Varnotix/codec/ByteOrder.h"
#include "Varnotix/codec/OutputBuffer.h"
#include "Varnotix/registry/Tag.h"

namespace Varnotix
{

inline constexpr DWORD kUndefinedLength = 0xFFFFFFFFU;

/// Tag and 32-bit length.
inline constexpr DWORD kItemHeaderSize = 8;

/// Writes numbers of a width in reverse.
inline void PutSwapped(const BYTE* bytes, std::size_t size, std::size_t width, COutputBuffer& out)
{
    for (std::size_t done = 0; done < size;)
    {
        const std::size_t piece = std::min(size - done, COutputBuffer::kLargestPiece);
        CopySwapped(bytes + done, piece, width, out.Room(piece));
        done += piece;
    }
}

/// Writes an item or delimiter tag and its length.
inline void PutItemTag(COutputBuffer& out, DWORD tag, bool bigEndian, DWORD length)
{
    BYTE* header = out.Room(kItemHeaderSize);
    PutWord(header, static_cast<DWORD>(Tag::Group(tag)), bigEndian);
    PutWord(header + 2, static_cast<DWORD>(Tag::Element(tag)), bigEndian);
    PutDoubleWord(header + 4, length, bigEndian);
}

} // namespace Varnotix
