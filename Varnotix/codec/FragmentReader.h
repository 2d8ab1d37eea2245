/// Reads encapsulated Pixel Data by the standard stream rules (PS3.5 section A.4).
#pragma once

#include "Varnotix/codec/ReadResult.h"
#include "Varnotix/codec/StreamCursor.h"

#include <vector>

class CDcmFrameList;

/// Offset table and fragments, from a cursor that is at the first item.
class CFragmentReader
{
public:
    CFragmentReader(CStreamCursor& cursor, bool bigEndian) : m_cursor(cursor), m_bigEndian(bigEndian) {}

    /// Reads up to the sequence delimiter.
    /// @return false when the stream ends before it, or something else is where an item should be; see Fault. Whole
    ///         fragments before that place are kept.
    bool Read();
    /// Whether an item for the offset table came first, as PS3.5 section A.4 demands even of an empty one.
    bool HasOffsetTable() const { return m_hasOffsetTable; }
    EParseFault Fault() const { return m_fault; }
    /// Stream offset of the item that could not be read.
    std::size_t FaultOffset() const { return m_faultOffset; }

    /// Makes frames of the fragments: by the offset table if it points to fragments, otherwise all are one frame where
    /// the object has only one, and one each where it has more.
    /// @param numberOfFrames value of (0028,0008); an empty one counts as 1.
    void FillFrames(CDcmFrameList& frames, const CString& numberOfFrames) const;

private:
    bool ReadItem(CSharedBytes& bytes, bool& isDelimiter);
    std::vector<bool> FrameStarts(const CString& numberOfFrames) const;

    CStreamCursor& m_cursor;
    bool m_bigEndian;
    EParseFault m_fault = PARSE_CUT_OFF;
    std::size_t m_faultOffset = 0;
    bool m_hasOffsetTable = true;
    CSharedBytes m_offsetTable;
    std::vector<CSharedBytes> m_fragments;
};
