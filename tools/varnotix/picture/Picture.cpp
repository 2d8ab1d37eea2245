#include "picture/Picture.h"

#include "object/Attributes.h"
#include "picture/SampleReader.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

constexpr int kBlack = 0;
constexpr int kWhite = 255;

/// Full range colour difference values as colours (PS3.3 C.7.6.3.1.2).
void FromYbr(int luminance, int blue, int red, BYTE* rgb)
{
    constexpr int kZero = 128;
    const auto channel = [](double value)
    { return static_cast<BYTE>(std::clamp(std::lround(value), static_cast<long>(kBlack), static_cast<long>(kWhite))); };
    rgb[0] = channel(luminance + 1.402 * (red - kZero));
    rgb[1] = channel(luminance - 0.344136 * (blue - kZero) - 0.714136 * (red - kZero));
    rgb[2] = channel(luminance + 1.772 * (blue - kZero));
}

} // namespace

CPainter::CPainter(const CDcmElementSet& store, const SImageHeader& header, const CString& name, const CReport& report)
    : m_header(header)
{
    m_refusal = FindRefusal();
    const bool isGray = header.photometricNumber <= PHOTOMETRIC_MONOCHROME2;
    if (m_refusal.IsEmpty() && isGray)
    {
        m_refusal = m_gray.Read(store, name, report);
        if (const std::optional<int> padding = WordOf(store, Varnotix::Tag::kPixelPaddingValue))
        {
            m_padding = header.isSigned ? static_cast<std::int16_t>(*padding) : *padding;
        }
    }
    else if (m_refusal.IsEmpty() && header.photometricNumber == PHOTOMETRIC_PALETTE)
    {
        m_refusal = m_palette.Read(store, header.isSigned);
    }
}

CString CPainter::FindRefusal() const
{
    CString reason;
    const SImageHeader& header = m_header;
    const int photometric = header.photometricNumber;
    const bool isColour = photometric >= PHOTOMETRIC_RGB;
    if (header.rows == 0 || header.columns == 0)
    {
        reason.Format("it has %d rows and %d columns", header.rows, header.columns);
    }
    else if (photometric < PHOTOMETRIC_MONOCHROME1 || photometric > PHOTOMETRIC_YBR_FULL_422)
    {
        reason = "pictures of the photometric interpretation '" + header.photometric + "' are not supported";
    }
    else if (header.samples != (isColour ? 3 : 1))
    {
        reason.Format("%d samples per pixel do not fit the photometric interpretation ", header.samples);
        reason += header.photometric;
    }
    else if (header.allocated != 8 && header.allocated != 16 &&
             (isColour || (header.allocated != 1 && header.allocated != 32)))
    {
        reason.Format("samples of %d bits are not supported here", header.allocated);
    }
    else if (header.stored < 1 || header.highBit < header.stored - 1 || header.highBit >= header.allocated)
    {
        reason.Format("%d bits stored up to bit %d do not fit %d bits allocated", header.stored, header.highBit,
                      header.allocated);
    }
    else if (isColour && header.isSigned)
    {
        reason = "colours with a sign are not supported";
    }
    else if (photometric >= PHOTOMETRIC_YBR_FULL && (header.allocated != 8 || header.stored != 8))
    {
        reason = header.photometric + " is supported with 8 bits only";
    }
    else if (photometric == PHOTOMETRIC_YBR_FULL_422 && header.columns % 2 != 0)
    {
        reason.Format("%d columns cannot share chrominance by twos", header.columns);
    }
    else if (header.allocated == 32 && header.syntax == SYNTAX_EXPLICIT_BIG)
    {
        // The words of a sample come out in the order of the stream, which writers do not agree on.
        reason = "samples of 32 bits from a big endian stream are not supported";
    }
    return reason;
}

CString CPainter::Paint(const CByteArray& frame, SPicture& picture) const
{
    const std::uint64_t wanted = m_header.FrameSize();
    if (static_cast<std::uint64_t>(frame.GetSize()) < wanted)
    {
        CString reason;
        reason.Format("it has %d bytes, a picture needs %llu", frame.GetSize(),
                      static_cast<unsigned long long>(wanted));
        return reason;
    }
    const bool isGray = m_header.photometricNumber <= PHOTOMETRIC_MONOCHROME2;
    picture.width = m_header.columns;
    picture.height = m_header.rows;
    picture.channels = isGray ? 1 : 3;
    picture.bytes.resize(static_cast<std::size_t>(m_header.Pixels()) * static_cast<std::size_t>(picture.channels));
    if (isGray)
    {
        PaintGray(frame, picture);
    }
    else if (m_header.photometricNumber == PHOTOMETRIC_PALETTE)
    {
        PaintPalette(frame, picture);
    }
    else if (m_header.photometricNumber == PHOTOMETRIC_YBR_FULL_422)
    {
        PaintSharedChrominance(frame, picture);
    }
    else
    {
        PaintColour(frame, picture);
    }
    return CString();
}

void CPainter::PaintGray(const CByteArray& frame, SPicture& picture) const
{
    const CSampleReader samples(m_header, frame);
    CGrayScale scale = m_gray;
    const std::size_t count = picture.bytes.size();
    if (scale.NeedsRange())
    {
        std::int64_t lowest = std::numeric_limits<std::int64_t>::max();
        std::int64_t highest = std::numeric_limits<std::int64_t>::min();
        for (std::size_t i = 0; i < count; ++i)
        {
            const std::int64_t value = samples.At(i);
            if (value != m_padding)
            {
                lowest = std::min(lowest, value);
                highest = std::max(highest, value);
            }
        }
        // Without any value outside the padding, the range has no effect.
        scale.SetRange(static_cast<double>(lowest), static_cast<double>(highest));
    }
    const int inversion = m_header.photometricNumber == PHOTOMETRIC_MONOCHROME1 ? kWhite : kBlack;
    for (std::size_t i = 0; i < count; ++i)
    {
        picture.bytes[i] = static_cast<BYTE>(scale.Gray(static_cast<double>(samples.At(i))) ^ inversion);
    }
}

void CPainter::PaintPalette(const CByteArray& frame, SPicture& picture) const
{
    const CSampleReader samples(m_header, frame);
    for (std::size_t i = 0; i < picture.bytes.size() / 3; ++i)
    {
        m_palette.Colour(samples.At(i), picture.bytes.data() + 3 * i);
    }
}

void CPainter::PaintColour(const CByteArray& frame, SPicture& picture) const
{
    const CSampleReader samples(m_header, frame);
    const std::size_t pixels = picture.bytes.size() / 3;
    const std::size_t pixelStep = m_header.byPlane ? 1 : 3;
    const std::size_t channelStep = m_header.byPlane ? pixels : 1;
    const std::int64_t highest = (std::int64_t{1} << m_header.stored) - 1;
    for (std::size_t i = 0; i < pixels; ++i)
    {
        BYTE* rgb = picture.bytes.data() + 3 * i;
        for (std::size_t channel = 0; channel < 3; ++channel)
        {
            const std::int64_t value = samples.At(i * pixelStep + channel * channelStep);
            rgb[channel] = static_cast<BYTE>((value * kWhite + highest / 2) / highest);
        }
        if (m_header.photometricNumber == PHOTOMETRIC_YBR_FULL)
        {
            FromYbr(rgb[0], rgb[1], rgb[2], rgb);
        }
    }
}

void CPainter::PaintSharedChrominance(const CByteArray& frame, SPicture& picture) const
{
    const BYTE* pair = frame.GetData();
    for (std::size_t i = 0; i < picture.bytes.size(); i += 6, pair += 4)
    {
        FromYbr(pair[0], pair[2], pair[3], picture.bytes.data() + i);
        FromYbr(pair[1], pair[2], pair[3], picture.bytes.data() + i + 3);
    }
}
