#include "picture/RleFrame.h"

#include <climits>

#include <algorithm>
#include <utility>

namespace
{

constexpr int kHeaderSize = 64;
constexpr int kMostSegments = 15;
// Two bytes can encode a run of 128.
constexpr std::uint64_t kMostShrinkage = 64;

int SegmentCount(const CByteArray& frame)
{
    // The header has room for 15 segments only, so the low byte is enough.
    const bool isSmall = frame[1] == 0 && frame[2] == 0 && frame[3] == 0;
    return isSmall ? frame[0] : -1;
}

std::size_t NumberAt(const CByteArray& frame, int place)
{
    const BYTE* bytes = frame.GetData() + place;
    return bytes[0] | std::size_t{bytes[1]} << 8U | std::size_t{bytes[2]} << 16U | std::size_t{bytes[3]} << 24U;
}

/// Where a segment of the frame begins and ends; an empty range when the header contradicts itself.
std::pair<const BYTE*, const BYTE*> SegmentAt(const CByteArray& frame, int index, int count)
{
    const auto size = static_cast<std::size_t>(frame.GetSize());
    const std::size_t start = NumberAt(frame, 4 + 4 * index);
    const std::size_t end = index + 1 < count ? NumberAt(frame, 8 + 4 * index) : size;
    const bool isSound = start >= kHeaderSize && start <= end && end <= size;
    return {frame.GetData() + (isSound ? start : 0), frame.GetData() + (isSound ? end : 0)};
}

/// The bytes that the runs of a segment expand to (PS3.5 section G.3.2).
std::uint64_t ExpandedSize(const BYTE* next, const BYTE* end)
{
    constexpr int kNothing = 128;
    constexpr int kRepeated = 257;
    std::uint64_t size = 0;
    while (end - next >= 2)
    {
        const int code = *next++;
        if (code < kNothing)
        {
            const std::ptrdiff_t literal = std::min<std::ptrdiff_t>(code + 1, end - next);
            size += static_cast<std::uint64_t>(literal);
            next += literal;
        }
        else if (code > kNothing)
        {
            size += static_cast<std::uint64_t>(kRepeated - code);
            ++next;
        }
    }
    return size;
}

} // namespace

CString DecodeRleFrame(const SImageHeader& header, const CByteArray& frame, CByteArray& pixels)
{
    CString reason;
    if (frame.GetSize() < kHeaderSize)
    {
        reason.Format("%d bytes are too few for the header of an RLE frame", frame.GetSize());
        return reason;
    }
    const int planes = header.samples * (header.allocated / 8);
    if (planes > kMostSegments)
    {
        reason.Format("%d samples of %d bits have more bytes than RLE has segments", header.samples, header.allocated);
        return reason;
    }
    if (header.allocated % 8 != 0 || SegmentCount(frame) != planes)
    {
        reason.Format("it has %d RLE segments; %d samples of %d bits need %d", SegmentCount(frame), header.samples,
                      header.allocated, planes);
        return reason;
    }
    const std::uint64_t pixelCount = header.Pixels();
    if (pixelCount * static_cast<std::uint64_t>(planes) > kMostShrinkage * static_cast<std::uint64_t>(frame.GetSize()))
    {
        reason.Format("%d bytes are too few for %d rows and %d columns", frame.GetSize(), header.rows, header.columns);
        return reason;
    }
    // The decoder gives each segment the room of whole samples.
    if (pixelCount * static_cast<std::uint64_t>(planes * (header.allocated / 8)) > INT_MAX)
    {
        return "decoding it takes more than 2 GiB";
    }
    // It leaves black what a segment lacks.
    for (int plane = 0; plane < planes; ++plane)
    {
        const auto [start, end] = SegmentAt(frame, plane, planes);
        const std::uint64_t size = ExpandedSize(start, end);
        if (size < pixelCount)
        {
            reason.Format("its RLE segment %d ends early: it has %llu of %llu bytes", plane + 1,
                          static_cast<unsigned long long>(size), static_cast<unsigned long long>(pixelCount));
            return reason;
        }
    }

    // The decoder ends the last segment 64 bytes before the end of its input, so it gets 64 more.
    CByteArray input(frame);
    input.SetSize(frame.GetSize() + kHeaderSize);
    // The first unused place of the header would end the last segment, if it were not empty.
    BYTE* unused = input.GetData() + 4 + 4 * planes;
    std::fill(unused, input.GetData() + kHeaderSize, BYTE{0});
    // Without a photometric interpretation it stores segments one after the other, whatever they are.
    CDcmImagePixelModule module;
    module.Rows(static_cast<WORD>(header.rows));
    module.Columns(static_cast<WORD>(header.columns));
    module.BitsAllocated(static_cast<WORD>(header.allocated));
    CByteArray segments;
    module.DcmRleDecode(input, segments);

    // Each segment takes the room of whole samples, though it holds but one byte of each, the high byte first.
    const int sampleSize = header.allocated / 8;
    const std::size_t count = static_cast<std::size_t>(pixelCount);
    const std::size_t room = count * static_cast<std::size_t>(sampleSize);
    pixels.SetSize(static_cast<int>(count * static_cast<std::size_t>(planes)));
    for (int plane = 0; plane < planes; ++plane)
    {
        const int place = plane / sampleSize * sampleSize + (sampleSize - 1 - plane % sampleSize);
        const BYTE* from = segments.GetData() + static_cast<std::size_t>(plane) * room;
        BYTE* to = pixels.GetData() + place;
        for (std::size_t i = 0; i < count; ++i)
        {
            to[i * static_cast<std::size_t>(planes)] = from[i];
        }
    }
    return CString();
}
