#include "picture/RleFrame.h"

namespace
{

constexpr int kHeaderSize = 64;
// Two bytes can encode a run of 128.
constexpr std::uint64_t kMostShrinkage = 64;

int SegmentCount(const CByteArray& frame)
{
    // The header has room for 15 segments only, so the low byte is enough.
    const bool isSmall = frame[1] == 0 && frame[2] == 0 && frame[3] == 0;
    return isSmall ? frame[0] : -1;
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

    // The decoder ends the last segment 64 bytes before the end of its input, so it gets 64 more.
    CByteArray input(frame);
    input.SetSize(frame.GetSize() + kHeaderSize);
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
