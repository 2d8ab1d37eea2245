#include "picture/FrameSource.h"

#include "object/Attributes.h"

#include <algorithm>

namespace
{

constexpr std::size_t kItemHeaderSize = 8;
constexpr std::size_t kCodestreamStart = 3;

DWORD TableEntry(const CByteArray& table, int index)
{
    const BYTE* bytes = table.GetData() + 4 * index;
    return bytes[0] | static_cast<DWORD>(bytes[1]) << 8U | static_cast<DWORD>(bytes[2]) << 16U |
           static_cast<DWORD>(bytes[3]) << 24U;
}

/// Whether a JPEG, JPEG-LS or JPEG 2000 codestream can begin so: with its first marker, and the next one.
bool BeginsCodestream(const CByteArray& bytes)
{
    constexpr BYTE kMarker = 0xFF;
    constexpr BYTE kJpeg = 0xD8;
    constexpr BYTE kJpeg2000 = 0x4F;
    return bytes.GetSize() >= static_cast<int>(kCodestreamStart) && bytes[0] == kMarker && bytes[2] == kMarker &&
           (bytes[1] == kJpeg || bytes[1] == kJpeg2000);
}

/// 0 for a text that is not a positive number; an object without the attribute has one frame.
std::size_t FramesOf(const SImageHeader& header)
{
    const int number = header.framesText.IsEmpty() ? 1 : WholeNumber(header.framesText).value_or(0);
    return static_cast<std::size_t>(std::max(number, 0));
}

} // namespace

CFrameSource::CFrameSource(const CDcmFrameList& stored, const SImageHeader& header, bool compressed,
                           const CString& name, const CReport& report)
    : m_stored(stored), m_name(name), m_report(report), m_total(static_cast<std::size_t>(stored.TotalSize()))
{
    std::size_t start = 0;
    for (int i = 0; i < stored.GetCount(); ++i)
    {
        m_starts.push_back(start);
        start += stored.GetFrame(i)->Size();
    }
    if (FramesOf(header) == 0)
    {
        report.Say(name + ": Number of Frames (0028,0008) '" + header.framesText +
                   "' is not a number of frames; they are counted in the pixel data");
    }
    if (compressed || stored.GetCount() > 1)
    {
        DivideFragments(header);
    }
    else
    {
        DivideNative(header);
    }
}

void CFrameSource::DivideNative(const SImageHeader& header)
{
    const std::uint64_t size = header.FrameSize();
    const std::uint64_t bits = header.FrameBits();
    const std::size_t wanted = FramesOf(header);
    if (size == 0)
    {
        Say("its attributes do not give the size of a frame, so its %llu bytes are taken as one frame", m_total);
        m_count = 1;
        m_ranges = {{0, m_total}};
        return;
    }
    m_frameBits = bits;
    const std::uint64_t whole = std::uint64_t{m_total} * 8 / bits;
    const bool isEnough = wanted != 0 && whole >= wanted;
    m_count = isEnough ? wanted : static_cast<std::size_t>(whole);
    const std::uint64_t rest = m_total - (m_count * bits + 7) / 8;
    if (isEnough && rest > 1) // One byte makes the length even.
    {
        Say("%llu bytes after its last frame are left out (frames of %llu bytes)", rest, size);
    }
    else if (!isEnough && wanted != 0)
    {
        m_count += rest > 0 ? 1 : 0;
        Say("its pixel data holds %llu bytes, too few for all its frames of %llu bytes", m_total, size);
    }
    else if (!isEnough)
    {
        m_count += rest > 1 ? 1 : 0;
    }
}

void CFrameSource::DivideFragments(const SImageHeader& header)
{
    std::vector<DWORD> fragments;
    for (int i = 0; i < m_stored.GetCount(); ++i)
    {
        const std::vector<DWORD> sizes = m_stored.GetFrame(i)->FragmentSizes();
        fragments.insert(fragments.end(), sizes.begin(), sizes.end());
    }
    const std::size_t wanted = FramesOf(header);
    const bool hasTable = DivideByTable(fragments);
    if (!hasTable && wanted == 1)
    {
        m_ranges = {{0, m_total}};
    }
    else if (!hasTable || (wanted > 1 && m_ranges.size() != wanted))
    {
        DivideByNumber(fragments, wanted, hasTable);
    }
    m_count = m_ranges.size();
    if (wanted != 0 && wanted != m_count)
    {
        Say("Number of Frames (0028,0008) is %llu, but its pixel data is divided into %llu", wanted, m_count);
    }
}

/// The library's frames are those of the stored list, in which the fragments of a frame can go to its neighbour;
/// only the table says where frames begin.
/// @return false when there is no table, or one that does not fit the fragments.
bool CFrameSource::DivideByTable(const std::vector<DWORD>& fragments)
{
    const CByteArray& table = m_stored.OffsetTable();
    const int entries = table.GetSize() / 4;
    int entry = 0;
    std::size_t offset = 0; // Of the fragment's item, from the first item.
    std::size_t bytes = 0;
    for (const DWORD size : fragments)
    {
        if (entry < entries && TableEntry(table, entry) == offset)
        {
            m_ranges.push_back({bytes, 0});
            ++entry;
        }
        if (m_ranges.empty())
        {
            break;
        }
        m_ranges.back().size += size;
        bytes += size;
        offset += size + kItemHeaderSize;
    }
    if (entries > 0 && entry == entries)
    {
        return true;
    }
    if (entries > 0)
    {
        SayUnusedTable(fragments.size());
    }
    m_ranges.clear();
    return false;
}

/// One fragment a frame, if the number of frames allows it, or else a frame from one start of a codestream to the next.
/// Without either, a table that divides the fragments keeps its say.
void CFrameSource::DivideByNumber(const std::vector<DWORD>& fragments, std::size_t wanted, bool hasTable)
{
    std::vector<SRange> single;
    std::vector<SRange> started;
    std::size_t offset = 0;
    for (const DWORD size : fragments)
    {
        single.push_back({offset, size});
        if (BeginsCodestream(Copy({offset, std::min<std::size_t>(size, kCodestreamStart)})))
        {
            started.push_back({offset, size});
        }
        else if (!started.empty())
        {
            started.back().size += size;
        }
        offset += size;
    }
    const bool areStarts = !started.empty() && started[0].offset == 0 && (wanted == 0 || started.size() == wanted);
    const bool isDivided = single.size() == wanted || areStarts;
    if (isDivided && hasTable)
    {
        SayUnusedTable(fragments.size());
    }
    if (isDivided || !hasTable)
    {
        m_ranges = single.size() != wanted && areStarts ? std::move(started) : std::move(single);
    }
}

CFrameSource::SRange CFrameSource::RangeOf(std::size_t index) const
{
    if (m_frameBits == 0)
    {
        return m_ranges[index];
    }
    const std::uint64_t start = index * m_frameBits;
    const std::uint64_t end = std::min(start + m_frameBits, std::uint64_t{m_total} * 8);
    const auto offset = static_cast<std::size_t>(start / 8);
    return {offset, static_cast<std::size_t>((end + 7) / 8) - offset};
}

CByteArray CFrameSource::Frame(std::size_t index) const
{
    CByteArray frame = Copy(RangeOf(index));
    if (m_frameBits % 8 != 0 && m_count > 1)
    {
        AlignBits(index, frame);
    }
    return frame;
}

/// A frame gets zeros after its last bit; of one that is cut short only whole bytes remain.
void CFrameSource::AlignBits(std::size_t index, CByteArray& frame) const
{
    const std::uint64_t start = index * m_frameBits;
    const std::uint64_t bits = std::min(m_frameBits, std::uint64_t{m_total} * 8 - start);
    const bool isWhole = bits == m_frameBits;
    const int size = static_cast<int>((isWhole ? bits + 7 : bits) / 8);
    BYTE* bytes = frame.GetData();
    for (int i = 0; i < size; ++i)
    {
        const int next = i + 1 < frame.GetSize() ? bytes[i + 1] : 0;
        bytes[i] = static_cast<BYTE>((bytes[i] | next << 8) >> (start % 8));
    }
    if (isWhole)
    {
        bytes[size - 1] = static_cast<BYTE>(bytes[size - 1] & ((1 << (bits % 8)) - 1));
    }
    frame.SetSize(size);
}

CByteArray CFrameSource::Copy(const SRange& range) const
{
    CByteArray bytes;
    bytes.Reserve(static_cast<int>(range.size));
    const std::size_t rangeEnd = range.offset + range.size;
    auto stored = std::upper_bound(m_starts.begin(), m_starts.end(), range.offset);
    stored -= stored == m_starts.begin() ? 0 : 1;
    for (; stored != m_starts.end() && *stored < rangeEnd; ++stored)
    {
        const CDcmFrame& frame = *m_stored.GetFrame(static_cast<int>(stored - m_starts.begin()));
        const std::size_t from = std::max(*stored, range.offset);
        const std::size_t end = std::min(*stored + frame.Size(), rangeEnd);
        if (from < end)
        {
            bytes.AppendRaw(frame.Data() + (from - *stored), static_cast<int>(end - from));
        }
    }
    return bytes;
}

void CFrameSource::SayUnusedTable(std::size_t fragments) const
{
    Say("its offset table of %llu entries does not fit its %llu fragments and is not used",
        static_cast<unsigned long long>(m_stored.OffsetTable().GetSize() / 4), fragments);
}

void CFrameSource::Say(const char* format, unsigned long long first, unsigned long long second) const
{
    CString text;
    text.Format(format, first, second);
    m_report.Say(m_name + ": " + text);
}
