/// The frames of pixel data, however it is divided in the object.
#pragma once

#include "console/Report.h"
#include "picture/ImageHeader.h"

#include <vector>

/// Divides pixel data into frames.
///
/// Uncompressed pixel data holds its frames back to back, bit by bit. Compressed pixel data is in fragments; the offset
/// table, or else the number of frames and the starts of codestreams, give those of each frame (PS3.5 Annex A.4). The
/// constructor reports a mismatch once; the frames are then those that could be found.
class CFrameSource
{
public:
    /// @param stored must outlive this object.
    CFrameSource(const CDcmFrameList& stored, const SImageHeader& header, bool compressed, const CString& name,
                 const CReport& report);

    std::size_t Count() const { return m_count; }

    /// A copy of a frame's bytes. The last frame of pixel data that is cut short is shorter than the others. A frame
    /// that begins within a byte is moved to begin with one.
    CByteArray Frame(std::size_t index) const;

private:
    struct SRange
    {
        std::size_t offset;
        std::size_t size;
    };

    void DivideNative(const SImageHeader& header);
    void DivideFragments(const SImageHeader& header);
    bool DivideByTable(const std::vector<DWORD>& fragments);
    void DivideByNumber(const std::vector<DWORD>& fragments, std::size_t wanted, bool hasTable);
    SRange RangeOf(std::size_t index) const;
    CByteArray Copy(const SRange& range) const;
    void AlignBits(std::size_t index, CByteArray& frame) const;
    void SayUnusedTable(std::size_t fragments) const;
    void Say(const char* format, unsigned long long first, unsigned long long second = 0) const;

    const CDcmFrameList& m_stored;
    CString m_name;
    const CReport& m_report;
    std::size_t m_total;
    std::size_t m_count = 0;
    std::uint64_t m_frameBits = 0; // Of frames back to back; 0 where the ranges are listed.
    std::vector<SRange> m_ranges;
    std::vector<std::size_t> m_starts; // Of the stored frames in their joined bytes.
};
