#include "picture/Picture.h"

#include "object/Attributes.h"
#include "picture/Colour.h"
#include "picture/SampleReader.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

constexpr int kByte = 255;
constexpr DWORD kPaddingRangeLimit = 0x00280121;

/// Values of eight bits become those of the picture's depth.
void SpreadBytes(SPicture& picture)
{
    for (std::uint16_t& value : picture.values)
    {
        value = static_cast<std::uint16_t>(value * (picture.highest / kByte));
    }
}

} // namespace

CPainter::CPainter(const CDcmElementSet& store, const SImageHeader& header, const SPictureStyle& style,
                   const CString& name, const CReport& report)
    : m_store(store), m_groups(store), m_header(header), m_style(style), m_name(name), m_report(report)
{
    m_refusal = FindRefusal();
    const bool isGray = header.photometricNumber <= PHOTOMETRIC_MONOCHROME2;
    if (m_refusal.IsEmpty() && isGray)
    {
        if (m_groups.IsEmpty())
        {
            CString note;
            m_refusal = ReadScale(0, m_gray, note);
            if (!note.IsEmpty())
            {
                report.Say(name + ": " + note);
            }
        }
        if (const std::optional<int> padding = WordOf(store, Varnotix::Tag::kPixelPaddingValue))
        {
            const auto stored = [&](int word) { return header.isSigned ? static_cast<std::int16_t>(word) : word; };
            m_padding = std::minmax({stored(*padding), stored(WordOf(store, kPaddingRangeLimit).value_or(*padding))});
        }
    }
    else if (m_refusal.IsEmpty() && header.photometricNumber == PHOTOMETRIC_PALETTE)
    {
        m_refusal = m_palette.Read(store, header.isSigned);
    }
}

CString CPainter::ReadScale(int index, CGrayScale& scale, CString& note) const
{
    return scale.Read(CFrameAttributes(m_store, m_groups, index), m_style.window, m_header.isSigned, note);
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

CString CPainter::Paint(const CByteArray& frame, int index, SPicture& picture) const
{
    const std::uint64_t wanted = m_header.FrameSize();
    CString reason;
    if (static_cast<std::uint64_t>(frame.GetSize()) < wanted)
    {
        reason.Format("it has %d bytes, a picture needs %llu", frame.GetSize(),
                      static_cast<unsigned long long>(wanted));
        return reason;
    }
    const bool isGray = m_header.photometricNumber <= PHOTOMETRIC_MONOCHROME2;
    CGrayScale scale = m_gray;
    if (isGray && !m_groups.IsEmpty())
    {
        CString note;
        reason = ReadScale(index, scale, note);
        if (!note.IsEmpty())
        {
            CString number;
            number.Format(": frame %d: ", index + 1);
            m_report.Say(m_name + number + note);
        }
        if (!reason.IsEmpty())
        {
            return reason;
        }
    }
    picture.width = m_header.columns;
    picture.height = m_header.rows;
    picture.channels = isGray ? 1 : 3;
    picture.highest = m_style.highest;
    picture.values.resize(static_cast<std::size_t>(m_header.Pixels()) * static_cast<std::size_t>(picture.channels));
    if (isGray)
    {
        PaintGray(frame, scale, picture);
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
    return reason;
}

void CPainter::PaintGray(const CByteArray& frame, CGrayScale scale, SPicture& picture) const
{
    const CSampleReader samples(m_header, frame);
    const std::size_t count = picture.values.size();
    if (scale.NeedsRange() && m_header.stored == 1)
    {
        // Of two values, one that a frame lacks does not make the other one black.
        scale.SetRange(scale.ModalityValue(0), scale.ModalityValue(m_header.isSigned ? -1 : 1));
    }
    else if (scale.NeedsRange())
    {
        double lowest = std::numeric_limits<double>::infinity();
        double highest = -lowest;
        for (std::size_t i = 0; i < count; ++i)
        {
            const std::int64_t stored = samples.At(i);
            if (stored < m_padding.first || stored > m_padding.second)
            {
                const double value = scale.ModalityValue(stored);
                lowest = std::min(lowest, value);
                highest = std::max(highest, value);
            }
        }
        // Without any value outside the padding, the range has no effect.
        scale.SetRange(lowest, highest);
    }
    const bool isInverse = m_header.photometricNumber == PHOTOMETRIC_MONOCHROME1;
    for (std::size_t i = 0; i < count; ++i)
    {
        const double gray = scale.Gray(scale.ModalityValue(samples.At(i)));
        const long value = std::lround(gray * picture.highest);
        picture.values[i] = static_cast<std::uint16_t>(isInverse ? picture.highest - value : value);
    }
}

void CPainter::PaintPalette(const CByteArray& frame, SPicture& picture) const
{
    const CSampleReader samples(m_header, frame);
    for (std::size_t i = 0; i < picture.values.size() / 3; ++i)
    {
        m_palette.Colour(samples.At(i), picture.highest, picture.values.data() + 3 * i);
    }
}

void CPainter::PaintColour(const CByteArray& frame, SPicture& picture) const
{
    const CSampleReader samples(m_header, frame);
    const std::size_t pixels = picture.values.size() / 3;
    const std::size_t pixelStep = m_header.byPlane ? 1 : 3;
    const std::size_t channelStep = m_header.byPlane ? pixels : 1;
    const bool isYbr = m_header.photometricNumber == PHOTOMETRIC_YBR_FULL;
    const std::int64_t highest = (std::int64_t{1} << m_header.stored) - 1;
    const int wanted = isYbr ? kByte : picture.highest;
    for (std::size_t i = 0; i < pixels; ++i)
    {
        std::uint16_t* rgb = picture.values.data() + 3 * i;
        for (std::size_t channel = 0; channel < 3; ++channel)
        {
            const std::int64_t value = samples.At(i * pixelStep + channel * channelStep);
            rgb[channel] = static_cast<std::uint16_t>((value * wanted + highest / 2) / highest);
        }
        if (isYbr)
        {
            FromYbr(rgb[0], rgb[1], rgb[2], rgb);
        }
    }
    if (isYbr)
    {
        SpreadBytes(picture);
    }
}

void CPainter::PaintSharedChrominance(const CByteArray& frame, SPicture& picture) const
{
    const BYTE* pair = frame.GetData();
    for (std::size_t i = 0; i < picture.values.size(); i += 6, pair += 4)
    {
        FromYbr(pair[0], pair[2], pair[3], picture.values.data() + i);
        FromYbr(pair[1], pair[2], pair[3], picture.values.data() + i + 3);
    }
    SpreadBytes(picture);
}
