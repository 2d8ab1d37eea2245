/// Frames as pictures.
#pragma once

#include "console/Report.h"
#include "picture/GrayScale.h"
#include "picture/ImageHeader.h"
#include "picture/Palette.h"

#include <algorithm>
#include <utility>
#include <vector>

/// Rows from the top, channels together by pixel, without gaps.
struct SPicture
{
    int width = 0;
    int height = 0;
    int channels = 1;  ///< 1: gray; 3: red, green, blue.
    int highest = 255; ///< Full intensity: 255 for eight bits per channel, 65535 for sixteen.
    std::vector<std::uint16_t> values;

    void SetWhite(int column, int row)
    {
        const auto count = static_cast<std::size_t>(channels);
        const auto place =
            (static_cast<std::size_t>(row) * static_cast<std::size_t>(width) + static_cast<std::size_t>(column)) *
            count;
        std::fill_n(values.begin() + static_cast<std::ptrdiff_t>(place), count, static_cast<std::uint16_t>(highest));
    }
};

/// How frames are drawn.
struct SPictureStyle
{
    SWindowChoice window;
    int highest = 255; ///< Of the pictures: 255 or 65535.
};

/// Draws the frames of one object.
class CPainter
{
public:
    /// @param store must outlive this object.
    /// @param header that of uncompressed frames.
    CPainter(const CDcmElementSet& store, const SImageHeader& header, const SPictureStyle& style, const CString& name,
             const CReport& report);

    /// Why no frame of the object can be drawn; empty when they can.
    const CString& Refusal() const { return m_refusal; }

    /// Draws an uncompressed frame. Reports what its picture will not show.
    /// @param index of the frame, counted from 0.
    /// @return empty, or why it cannot be drawn.
    CString Paint(const CByteArray& frame, int index, SPicture& picture) const;

private:
    CString FindRefusal() const;
    CString ReadScale(int index, CGrayScale& scale, CString& note) const;
    void PaintGray(const CByteArray& frame, CGrayScale scale, SPicture& picture) const;
    void PaintPalette(const CByteArray& frame, SPicture& picture) const;
    void PaintColour(const CByteArray& frame, SPicture& picture) const;
    void PaintSharedChrominance(const CByteArray& frame, SPicture& picture) const;

    const CDcmElementSet& m_store;
    CFunctionalGroups m_groups; // With them, frames may have transformations of their own.
    SImageHeader m_header;
    SPictureStyle m_style;
    CString m_name;
    const CReport& m_report;
    CGrayScale m_gray; // Of all frames, where there are no functional groups.
    CPalette m_palette;
    // The values of pixels outside the image, from the first to the last, which no range should hold.
    std::pair<std::int64_t, std::int64_t> m_padding{1, 0};
    CString m_refusal;
};
