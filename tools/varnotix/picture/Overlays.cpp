#include "picture/Overlays.h"

#include "object/Attributes.h"
#include "picture/SampleReader.h"

#include <algorithm>

namespace
{

constexpr DWORD kFirstGroup = 0x60000000;
constexpr DWORD kLastGroup = 0x601E0000;
constexpr DWORD kNextGroup = 0x00020000;
constexpr DWORD kRows = 0x0010;
constexpr DWORD kColumns = 0x0011;
constexpr DWORD kFrames = 0x0015;
constexpr DWORD kOrigin = 0x0050;
constexpr DWORD kFirstFrame = 0x0051;
constexpr DWORD kBitsAllocated = 0x0100;
constexpr DWORD kBitPosition = 0x0102;
constexpr DWORD kData = 0x3000;

} // namespace

COverlays::COverlays(const CDcmElementSet& store, const SImageHeader& header, const CString& name,
                     const CReport& report)
    : m_header(header)
{
    for (DWORD group = kFirstGroup; group <= kLastGroup; group += kNextGroup)
    {
        if (store.Find(group | kRows) == nullptr)
        {
            continue;
        }
        SPlane plane;
        const CString reason = ReadPlane(store, group, plane);
        if (reason.IsEmpty())
        {
            m_planes.push_back(plane);
        }
        else
        {
            CString text;
            text.Format(": the overlay of group %04lX is not drawn: ", static_cast<unsigned long>(group >> 16U));
            report.Say(name + text + reason);
        }
    }
}

CString COverlays::ReadPlane(const CDcmElementSet& store, DWORD group, SPlane& plane) const
{
    plane.rows = WordOf(store, group | kRows).value_or(0);
    plane.columns = WordOf(store, group | kColumns).value_or(0);
    const CDcmElement* origin = store.Find(group | kOrigin);
    const CWordArray* words = origin != nullptr ? origin->Words() : nullptr;
    if (words != nullptr && words->GetSize() >= 2)
    {
        plane.top = static_cast<std::int16_t>((*words)[0]) - 1;
        plane.left = static_cast<std::int16_t>((*words)[1]) - 1;
    }
    const CString frames = TextOf(store, group | kFrames);
    plane.isForAll = frames.IsEmpty();
    plane.frames = plane.isForAll ? 1 : WholeNumber(frames).value_or(0);
    plane.firstFrame = WordOf(store, group | kFirstFrame).value_or(1) - 1;
    if (plane.rows == 0 || plane.columns == 0 || plane.frames < 1)
    {
        return "it has no size";
    }
    const CDcmElement* data = store.Find(group | kData);
    if (data != nullptr && !data->RawBytes().IsEmpty())
    {
        plane.data = data->RawBytes();
        const std::uint64_t bits = static_cast<std::uint64_t>(plane.rows) * static_cast<std::uint64_t>(plane.columns) *
                                   static_cast<std::uint64_t>(plane.frames);
        return plane.data.Size() < (bits + 7) / 8 ? CString("its data ends early") : CString();
    }
    // An overlay without data is in a bit of the samples; these have room only where they are not all in use.
    plane.bit = WordOf(store, group | kBitPosition).value_or(0);
    const bool hasBit = WordOf(store, group | kBitsAllocated) == m_header.allocated && m_header.samples == 1 &&
                        plane.bit < m_header.allocated &&
                        (plane.bit > m_header.highBit || plane.bit <= m_header.highBit - m_header.stored);
    return hasBit && plane.rows == m_header.rows && plane.columns == m_header.columns ? CString()
                                                                                      : CString("it has no data");
}

bool COverlays::IsSet(const SPlane& plane, int frame, int row, int column, const CByteArray& pixels) const
{
    const auto place =
        static_cast<std::size_t>(row) * static_cast<std::size_t>(plane.columns) + static_cast<std::size_t>(column);
    if (plane.data.IsEmpty())
    {
        return (CSampleReader(m_header, pixels).Cell(place) >> plane.bit & 1) != 0;
    }
    const std::size_t start = static_cast<std::size_t>(plane.isForAll ? 0 : frame - plane.firstFrame) *
                              static_cast<std::size_t>(plane.rows) * static_cast<std::size_t>(plane.columns);
    return (plane.data.Data()[(start + place) / 8] >> ((start + place) % 8) & 1) != 0;
}

void COverlays::Paint(int frame, const CByteArray& pixels, SPicture& picture) const
{
    for (const SPlane& plane : m_planes)
    {
        const bool isEmbedded = plane.data.IsEmpty();
        if (!isEmbedded && !plane.isForAll && (frame < plane.firstFrame || frame - plane.firstFrame >= plane.frames))
        {
            continue;
        }
        const int top = isEmbedded ? 0 : plane.top;
        const int left = isEmbedded ? 0 : plane.left;
        for (int row = std::max(0, -top); row < plane.rows && row + top < picture.height; ++row)
        {
            for (int column = std::max(0, -left); column < plane.columns && column + left < picture.width; ++column)
            {
                if (IsSet(plane, frame, row, column, pixels))
                {
                    picture.SetWhite(column + left, row + top);
                }
            }
        }
    }
}
