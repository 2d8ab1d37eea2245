/// Encodes the frames of Pixel Data (PS3.5 section 8 and Annex A.4).
#pragma once

#include "Varnotix/codec/OutputBuffer.h"

class CDcmFrameList;

/// One frame is written as it is, with a defined length. Two and more are written as encapsulated pixel data: an
/// offset table item, an item for each fragment that the frames were read from, and a sequence delimiter.
///
/// The offset table is the one that the list keeps, as long as each of its entries still points to a fragment;
/// otherwise it is written empty, which every reader must accept.
class CFrameEncoder
{
public:
    CFrameEncoder(const CDcmFrameList& frames, int vr, int syntax);

    DWORD Size() const;
    void Write(COutputBuffer& out) const;

private:
    void WriteBytes(const BYTE* bytes, std::size_t size, COutputBuffer& out) const;

    const CDcmFrameList& m_frames;
    bool m_bigEndian;
    bool m_swapped;
};
