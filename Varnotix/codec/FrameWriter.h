/// Writes the frames of Pixel Data by the standard stream rules (PS3.5 section 8 and Annex A).
#pragma once

#include "Varnotix/codec/OutputBuffer.h"

#include <cstdint>

class CDcmFrameList;

/// Native frames go end to end into one value, padded to even. Encapsulated ones become an offset table, an item for
/// each fragment that they were read from, and a sequence delimiter.
///
/// The offset table is the one that was read as long as each of its entries points to a fragment. Where it does not,
/// and for frames that were not read, it is made from the frames; it is empty where an offset would pass 32 bits.
class CFrameWriter
{
public:
    /// @param swapWidth width in bytes of the numbers of native frames, which big endian streams hold in reverse.
    CFrameWriter(const CDcmFrameList& frames, bool isEncapsulated, bool bigEndian, std::size_t swapWidth)
        : m_frames(frames), m_isEncapsulated(isEncapsulated), m_bigEndian(bigEndian), m_swapWidth(swapWidth)
    {
    }

    /// Size of the value in bytes.
    std::uint64_t Size() const;
    void Write(COutputBuffer& out) const;

private:
    CByteArray OffsetTable() const;
    void WriteNative(COutputBuffer& out) const;
    void WriteItem(const BYTE* bytes, std::size_t size, COutputBuffer& out) const;

    const CDcmFrameList& m_frames;
    bool m_isEncapsulated;
    bool m_bigEndian;
    std::size_t m_swapWidth;
};
