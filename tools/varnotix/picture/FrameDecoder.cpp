#include "picture/FrameDecoder.h"

#include "codestream/Jpeg.h"
#include "codestream/Jpeg2000.h"
#include "codestream/JpegLs.h"
#include "picture/Colour.h"
#include "picture/RleFrame.h"

EFrameCoding FrameCodingOf(const CString& transferSyntax, bool compressed)
{
    constexpr std::string_view kFamily = "1.2.840.10008.1.2.4.";
    const std::string_view uid = transferSyntax.View();
    if (!compressed)
    {
        return EFrameCoding::None;
    }
    if (uid == "1.2.840.10008.1.2.5")
    {
        return EFrameCoding::Rle;
    }
    const std::string_view number = uid.starts_with(kFamily) ? uid.substr(kFamily.size()) : std::string_view();
    if (number.size() == 2 && (number[0] == '5' || number[0] == '6' || number == "70"))
    {
        return EFrameCoding::Jpeg;
    }
    if (number == "80" || number == "81")
    {
        return EFrameCoding::JpegLs;
    }
    const bool isJpeg2000 = number == "90" || number == "91" || number == "92" || number == "93" || number == "201" ||
                            number == "202" || number == "203";
    return isJpeg2000 ? EFrameCoding::Jpeg2000 : EFrameCoding::Other;
}

CFrameDecoder::CFrameDecoder(const CString& transferSyntax, bool compressed, const SImageHeader& header,
                             const CString& name, const CReport& report)
    : m_coding(FrameCodingOf(transferSyntax, compressed)),
      m_header(header),
      m_decoded(header),
      m_name(name),
      m_report(report),
      m_refusal(FindRefusal(transferSyntax))
{
    if (m_coding == EFrameCoding::None)
    {
        return;
    }
    // A decoded frame has whole samples, pixel by pixel, regardless of the attributes (PS3.5 Annex G and section 8.2).
    m_decoded.byPlane = false;
    const int photometric = header.photometricNumber;
    if (photometric == PHOTOMETRIC_YBR_FULL_422)
    {
        m_decoded.photometricNumber = PHOTOMETRIC_YBR_FULL;
    }
    else if (m_coding == EFrameCoding::Jpeg2000 &&
             (photometric == PHOTOMETRIC_YBR_ICT || photometric == PHOTOMETRIC_YBR_RCT))
    {
        m_decoded.photometricNumber = PHOTOMETRIC_RGB;
    }
}

CString CFrameDecoder::FindRefusal(const CString& transferSyntax) const
{
    CString reason;
    const bool isMissing =
        (m_coding == EFrameCoding::JpegLs && !HasJpegLs()) || (m_coding == EFrameCoding::Jpeg2000 && !HasJpeg2000());
    if (m_coding == EFrameCoding::Other || isMissing)
    {
        reason = "its pixel data is compressed (transfer syntax " + transferSyntax + "), ";
        reason += isMissing ? "for which this build has no decoder" : "for which there is no decoder here";
    }
    else if (m_coding != EFrameCoding::None && m_coding != EFrameCoding::Rle && m_header.allocated != 8 &&
             m_header.allocated != 16)
    {
        reason.Format("compressed samples of %d bits allocated are not supported", m_header.allocated);
    }
    return reason;
}

CString CFrameDecoder::Decode(CByteArray& frame)
{
    if (m_coding == EFrameCoding::Rle)
    {
        CByteArray pixels;
        CString reason = DecodeRleFrame(m_header, frame, pixels);
        frame.Swap(pixels);
        return reason;
    }
    if (m_coding != EFrameCoding::None)
    {
        try
        {
            DecodeCodestream(frame);
        }
        catch (const CCodestreamFault& fault)
        {
            return fault.what();
        }
    }
    return CString();
}

void CFrameDecoder::DecodeCodestream(CByteArray& frame)
{
    const SRasterShape shape{m_header.columns, m_header.rows, m_header.samples, m_header.allocated};
    const auto size = static_cast<std::size_t>(frame.GetSize());
    constexpr std::uint64_t kMostSamples = std::uint64_t{1} << 30U;
    if (shape.Samples() > kMostSamples)
    {
        FailCodestream("it is larger than 2 GiB");
    }
    SRaster raster;
    switch (m_coding)
    {
    case EFrameCoding::JpegLs:
        DecodeJpegLs(frame.GetData(), size, shape, raster);
        break;
    case EFrameCoding::Jpeg2000:
        DecodeJpeg2000(frame.GetData(), size, shape, raster);
        break;
    default:
        DecodeJpeg(frame.GetData(), size, shape, raster);
        break;
    }
    Pack(raster, frame);
    if (raster.hasChrominance && m_decoded.photometricNumber == PHOTOMETRIC_RGB && m_decoded.allocated == 8)
    {
        ConvertColours(frame);
    }
}

/// Writes samples as the object's attributes describe them, whatever number of bits the codestream has.
void CFrameDecoder::Pack(const SRaster& raster, CByteArray& pixels) const
{
    const bool isWord = m_decoded.allocated == 16;
    // A decoder that does not know of signs leaves the bits above the sample's empty.
    const bool isExtended = m_decoded.isSigned && !raster.isSigned && raster.bits < m_decoded.stored;
    const int signBit = isExtended ? 1 << (raster.bits - 1) : 0;
    pixels.SetSize(static_cast<int>(raster.samples.size() * (isWord ? 2 : 1)));
    BYTE* to = pixels.GetData();
    for (const std::uint16_t sample : raster.samples)
    {
        const int value = (sample ^ signBit) - signBit;
        *to++ = static_cast<BYTE>(value);
        if (isWord)
        {
            *to++ = static_cast<BYTE>(value >> 8);
        }
    }
}

/// Many writers leave RGB in the attribute when their encoder made chrominance of it.
void CFrameDecoder::ConvertColours(CByteArray& pixels)
{
    if (!m_hasNoted)
    {
        m_report.Say(m_name + ": its JPEG codestream has chrominance, though its photometric interpretation is RGB");
        m_hasNoted = true;
    }
    BYTE* end = pixels.GetData() + pixels.GetSize();
    for (BYTE* rgb = pixels.GetData(); end - rgb >= 3; rgb += 3)
    {
        FromYbr(rgb[0], rgb[1], rgb[2], rgb);
    }
}
