#include "deid/BlackOut.h"

#include "object/Attributes.h"
#include "picture/FrameSource.h"
#include "picture/RleEncoder.h"
#include "picture/RleFrame.h"
#include "rewrite/FileMeta.h"

#include <algorithm>

namespace
{

constexpr BYTE kGrayChrominance = 128;
constexpr DWORD kFloatPixelData = 0x7FE00008;
constexpr DWORD kDoublePixelData = 0x7FE00009;
// Places and lengths of encapsulated frames, optional attributes, which are others afterwards.
constexpr DWORD kOffsetTables[] = {0x7FE00001, 0x7FE00002, 0x7FE00003};

/// Clears pixels of one frame, which begins at a bit of the bytes.
class CEraser
{
public:
    CEraser(const SImageHeader& header, bool byPlane, std::size_t firstBit, CByteArray& bytes)
        : m_header(header), m_byPlane(byPlane && header.samples > 1), m_firstBit(firstBit), m_bytes(bytes)
    {
    }

    void Clear(const SRectangle& rectangle) const
    {
        const int right = std::min(rectangle.width, m_header.columns - rectangle.x) + rectangle.x;
        const int bottom = std::min(rectangle.height, m_header.rows - rectangle.y) + rectangle.y;
        for (int y = rectangle.y; y < bottom && IsInside(y); ++y)
        {
            for (int x = rectangle.x; x < right; ++x)
            {
                ClearPixel(static_cast<std::size_t>(y) * static_cast<std::size_t>(m_header.columns) +
                           static_cast<std::size_t>(x));
            }
        }
    }

private:
    /// Whether the bytes reach to the row: pixel data may be cut short.
    bool IsInside(int row) const
    {
        const std::uint64_t pixels = static_cast<std::uint64_t>(row) * static_cast<std::uint64_t>(m_header.columns);
        return m_firstBit + pixels * static_cast<std::uint64_t>(m_header.allocated) <
               static_cast<std::uint64_t>(m_bytes.GetSize()) * 8;
    }

    void ClearPixel(std::size_t pixel) const
    {
        const bool isYbr = m_header.photometricNumber == PHOTOMETRIC_YBR_FULL;
        if (m_header.photometricNumber == PHOTOMETRIC_YBR_FULL_422)
        {
            // Two pixels have four bytes: their luminances, and the chrominance of both.
            ClearBits(pixel / 2 * 4 + pixel % 2, 0);
            ClearBits(pixel / 2 * 4 + 2, kGrayChrominance);
            ClearBits(pixel / 2 * 4 + 3, kGrayChrominance);
            return;
        }
        const auto samples = static_cast<std::size_t>(m_header.samples);
        for (std::size_t sample = 0; sample < samples; ++sample)
        {
            const std::size_t place =
                m_byPlane ? sample * static_cast<std::size_t>(m_header.Pixels()) + pixel : pixel * samples + sample;
            ClearBits(place, isYbr && sample > 0 ? kGrayChrominance : 0);
        }
    }

    /// @param value of samples of eight bits.
    void ClearBits(std::size_t sample, BYTE value) const
    {
        const auto allocated = static_cast<std::size_t>(m_header.allocated);
        const std::size_t first = m_firstBit + sample * allocated;
        if ((first + allocated + 7) / 8 > static_cast<std::size_t>(m_bytes.GetSize()))
        {
            return; // Pixel data that is cut short.
        }
        BYTE* byte = m_bytes.GetData() + first / 8;
        if (allocated == 1)
        {
            *byte = static_cast<BYTE>(*byte & ~(1U << first % 8));
            return;
        }
        std::fill(byte, byte + allocated / 8, value);
    }

    const SImageHeader& m_header;
    bool m_byPlane;
    std::size_t m_firstBit;
    CByteArray& m_bytes;
};

/// True for descriptions of which the place of each sample is known.
bool IsKnownForm(const SImageHeader& header)
{
    const bool isWhole = header.allocated == 1 || (header.allocated % 8 == 0 && header.allocated > 0);
    const bool isColor =
        header.samples == 3 && (header.photometricNumber == PHOTOMETRIC_RGB ||
                                (header.allocated == 8 && (header.photometricNumber == PHOTOMETRIC_YBR_FULL ||
                                                           header.photometricNumber == PHOTOMETRIC_YBR_FULL_422)));
    return isWhole && header.Pixels() > 0 && (header.samples == 1 || isColor);
}

void ClearNative(CDcmFrameList& frames, const SImageHeader& header, const std::vector<SRectangle>& rectangles)
{
    CByteArray bytes;
    for (int i = 0; i < frames.GetCount(); ++i)
    {
        bytes.AppendRaw(frames.GetFrame(i)->Data(), static_cast<int>(frames.GetFrame(i)->Size()));
    }
    const bool isSubsampled = header.photometricNumber == PHOTOMETRIC_YBR_FULL_422;
    const std::size_t frameBits = static_cast<std::size_t>(header.Pixels()) *
                                  static_cast<std::size_t>(isSubsampled ? 2 : header.samples) *
                                  static_cast<std::size_t>(header.allocated);
    const auto allBits = static_cast<std::size_t>(bytes.GetSize()) * 8;
    for (std::size_t first = 0; first < allBits; first += frameBits)
    {
        const CEraser eraser(header, header.byPlane, first, bytes);
        for (const SRectangle& rectangle : rectangles)
        {
            eraser.Clear(rectangle);
        }
    }
    frames.RemoveAll();
    frames.AddFrame(bytes);
}

CString ClearEncoded(CDcmIOD& object, CDcmFrameList& frames, const SImageHeader& header,
                     const std::vector<SRectangle>& rectangles, const CString& name, const CReport& report)
{
    std::vector<CByteArray> cleared;
    const CFrameSource source(frames, header, true, name, report);
    for (std::size_t i = 0; i < source.Count(); ++i)
    {
        CByteArray pixels;
        const CString reason = DecodeRleFrame(header, source.Frame(i), pixels);
        if (!reason.IsEmpty())
        {
            return "its pixels cannot be cleared: " + reason;
        }
        SImageHeader decoded = header;
        decoded.photometricNumber =
            decoded.photometricNumber == PHOTOMETRIC_YBR_FULL_422 ? PHOTOMETRIC_YBR_FULL : decoded.photometricNumber;
        const CEraser eraser(decoded, false, 0, pixels);
        for (const SRectangle& rectangle : rectangles)
        {
            eraser.Clear(rectangle);
        }
        cleared.push_back(EncodeRleFrame(header, pixels));
    }
    for (const DWORD tag : kOffsetTables)
    {
        object.ElementStore().Remove(tag);
    }
    frames.RemoveAll();
    for (const CByteArray& frame : cleared)
    {
        frames.AddFrame(frame);
    }
    return CString();
}

} // namespace

std::optional<SRectangle> ParseRectangle(const CString& text)
{
    int numbers[4] = {};
    CString rest(text);
    for (int i = 0; i < 4; ++i)
    {
        const int comma = rest.Find(',');
        if ((comma < 0) != (i == 3))
        {
            return std::nullopt;
        }
        const std::optional<int> number = WholeNumber(i == 3 ? rest : rest.Left(comma));
        if (!number || *number < (i < 2 ? 0 : 1))
        {
            return std::nullopt;
        }
        numbers[i] = *number;
        rest = rest.Mid(comma + 1);
    }
    return SRectangle{numbers[0], numbers[1], numbers[2], numbers[3]};
}

CString BlackOut(CDcmIOD& object, const std::vector<SRectangle>& rectangles, const CString& name, const CReport& report)
{
    CDcmElementSet& store = object.ElementStore();
    CDcmElement* element = store.Find(Varnotix::Tag::kPixelData);
    CDcmFrameList* frames = element != nullptr ? element->Frames() : nullptr;
    if (store.Find(kFloatPixelData) != nullptr || store.Find(kDoublePixelData) != nullptr)
    {
        return "its pixels cannot be cleared: they are floating point numbers";
    }
    if (frames == nullptr || frames->GetCount() == 0)
    {
        return CString();
    }
    const SImageHeader header = ReadImageHeader(object);
    const SObjectForm form = FormOf(object);
    if (std::none_of(rectangles.begin(), rectangles.end(),
                     [&](const SRectangle& one) { return one.x < header.columns && one.y < header.rows; }))
    {
        return "no rectangle of --black-out lies in its pixels";
    }
    if (!IsKnownForm(header))
    {
        return "its pixels cannot be cleared: its attributes do not say where they are";
    }
    if (!form.compressed)
    {
        ClearNative(*frames, header, rectangles);
        return CString();
    }
    if (CDcmRegistry::Global().UidEnum(form.transferSyntax) != Varnotix::UID_RLE)
    {
        return "its pixels cannot be cleared: its pixel data is compressed (transfer syntax " + form.transferSyntax +
               "), and only native and RLE pixel data can be";
    }
    return ClearEncoded(object, *frames, header, rectangles, name, report);
}
