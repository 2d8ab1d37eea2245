/// Frames of compressed pixel data as uncompressed ones.
#pragma once

#include "console/Report.h"
#include "picture/ImageHeader.h"

struct SRaster;

/// Kinds of coding, by families of transfer syntaxes (PS3.5 Annex A.4).
enum class EFrameCoding
{
    None,
    Rle,
    Jpeg,
    JpegLs,
    Jpeg2000,
    Other
};

/// @param transferSyntax the UID without padding.
EFrameCoding FrameCodingOf(const CString& transferSyntax, bool compressed);

/// Decodes the frames of one object.
class CFrameDecoder
{
public:
    /// @param header that of the object.
    CFrameDecoder(const CString& transferSyntax, bool compressed, const SImageHeader& header, const CString& name,
                  const CReport& report);

    /// Why no frame of the object can be decoded; empty when they can.
    const CString& Refusal() const { return m_refusal; }

    /// That of decoded frames: samples by pixel, in the colours that the decoder gives.
    const SImageHeader& DecodedHeader() const { return m_decoded; }

    /// Replaces a frame by its uncompressed form: samples by pixel, low byte first.
    /// @return empty, or why it cannot be decoded.
    CString Decode(CByteArray& frame);

private:
    CString FindRefusal(const CString& transferSyntax) const;
    void DecodeCodestream(CByteArray& frame);
    void Pack(const SRaster& raster, CByteArray& pixels) const;
    void ConvertColours(CByteArray& pixels);

    EFrameCoding m_coding;
    SImageHeader m_header;
    SImageHeader m_decoded;
    CString m_name;
    const CReport& m_report;
    CString m_refusal;
    bool m_hasNoted = false;
};
