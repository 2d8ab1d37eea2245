/// Reads the frames of Pixel Data by the classic stream rules (PS3.5 section 8 and Annex A.4).
#pragma once

#include "Varnotix/codec/ReadResult.h"
#include "Varnotix/codec/StreamCursor.h"

/// Fills the frame list of a Pixel Data element from a cursor that is at its value. Throws CParseException at the first
/// fault.
class CClassicPixelDecoder
{
public:
    CClassicPixelDecoder(CStreamCursor& cursor, bool bigEndian) : m_cursor(cursor), m_bigEndian(bigEndian) {}

    /// @param length the length in the element's header; the undefined one means offset table and fragments.
    void Read(CDcmElement& element, DWORD length);

private:
    void ReadOffsetTable(CDcmElement& element);
    void ReadFragments(CDcmElement& element);
    bool ReadItemHeader(EParseFault shortFault, EParseFault badFault, DWORD& length);
    CSharedBytes ReadFrameBytes(DWORD length, int vr, EParseFault shortFault);

    CStreamCursor& m_cursor;
    bool m_bigEndian;
};
