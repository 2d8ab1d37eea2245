/// Frames as pictures.
#pragma once

#include "console/Report.h"
#include "picture/GrayScale.h"
#include "picture/ImageHeader.h"
#include "picture/Palette.h"

#include <optional>
#include <vector>

/// Eight bits per channel, rows from the top.
struct SPicture
{
    int width = 0;
    int height = 0;
    int channels = 1;        ///< 1: gray; 3: red, green, blue, by pixel.
    std::vector<BYTE> bytes; ///< Without gaps between rows.
};

/// Draws the frames of one object.
class CPainter
{
public:
    /// Reports what its pictures will not show.
    CPainter(const CDcmElementSet& store, const SImageHeader& header, const CString& name, const CReport& report);

    /// Why no frame of the object can be drawn; empty when they can.
    const CString& Refusal() const { return m_refusal; }

    /// Draws an uncompressed frame.
    /// @return empty, or why it cannot be drawn.
    CString Paint(const CByteArray& frame, SPicture& picture) const;

private:
    CString FindRefusal() const;
    void PaintGray(const CByteArray& frame, SPicture& picture) const;
    void PaintPalette(const CByteArray& frame, SPicture& picture) const;
    void PaintColour(const CByteArray& frame, SPicture& picture) const;
    void PaintSharedChrominance(const CByteArray& frame, SPicture& picture) const;

    SImageHeader m_header;
    CGrayScale m_gray;
    CPalette m_palette;
    std::optional<std::int64_t> m_padding; // The value of pixels outside the image, which no range should hold.
    CString m_refusal;
};
