#include "picture/FrameSource.h"

#include "object/Attributes.h"

#include <algorithm>

namespace
{

constexpr std::size_t kItemHeaderSize = 8;

DWORD TableEntry(const CByteArray& table, int index)
{
    const BYTE* bytes = table.GetData() + 4 * index;
    return bytes[0] | static_cast<DWORD>(bytes[1]) << 8U | static_cast<DWORD>(bytes[2]) << 16U |
           static_cast<DWORD>(bytes[3]) << 24U;
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
    const bool isAligned = header.Pixels() * static_cast<std::uint64_t>(header.samples) *
                               static_cast<std::uint64_t>(header.allocated) % 8 ==
                           0;
    const std::size_t wanted = FramesOf(header);
    if (size == 0 || (wanted != 1 && !isAligned))
    {
        Say(size == 0 ? "its attributes do not give the size of a frame, so its %llu bytes are taken as one frame"
                      : "its frames do not begin at whole bytes, so its %llu bytes are taken as one frame",
            m_total);
        m_count = 1;
        m_ranges = {{0, m_total}};
        return;
    }
    const std::uint64_t whole = m_total / size;
    const std::size_t rest = static_cast<std::size_t>(m_total % size);
    m_frameSize = static_cast<std::size_t>(std::min<std::uint64_t>(size, m_total));
    m_count = static_cast<std::size_t>(whole);
    if (wanted == 0)
    {
        m_count += rest > 1 ? 1 : 0;
    }
    else if (whole >= wanted)
    {
        m_count = wanted;
        const std::size_t more = m_total - m_count * m_frameSize;
        if (more > 1) // One byte makes the length even.
        {
            Say("%llu bytes after its last frame are left out (frames of %llu bytes)", more, size);
        }
        return;
    }
    else
    {
        m_count += rest > 0 ? 1 : 0;
        Say("its pixel data holds %llu bytes, too few for all its frames of %llu bytes", m_total, size);
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
    if (!DivideByTable(fragments))
    {
        if (wanted == 1)
        {
            m_ranges = {{0, m_total}};
        }
        else
        {
            std::size_t offset = 0;
            for (const DWORD size : fragments)
            {
                m_ranges.push_back({offset, size});
                offset += size;
            }
        }
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
        Say("its offset table of %llu entries does not fit its %llu fragments and is not used",
            static_cast<unsigned long long>(entries), fragments.size());
    }
    m_ranges.clear();
    return false;
}

CFrameSource::SRange CFrameSource::RangeOf(std::size_t index) const
{
    if (m_frameSize == 0)
    {
        return m_ranges[index];
    }
    const std::size_t offset = index * m_frameSize;
    return {offset, std::min(m_frameSize, m_total - offset)};
}

CByteArray CFrameSource::Frame(std::size_t index) const
{
    const SRange range = RangeOf(index);
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

void CFrameSource::Say(const char* format, unsigned long long first, unsigned long long second) const
{
    CString text;
    text.Format(format, first, second);
    m_report.Say(m_name + ": " + text);
}
