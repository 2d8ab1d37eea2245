/// Rectangles of the pixels that are cleared.
#pragma once

#include "console/Report.h"

#include <optional>
#include <vector>

/// A rectangle in pixels; the upper left one is 0, 0.
struct SRectangle
{
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

/// Reads "X,Y,W,H".
std::optional<SRectangle> ParseRectangle(const CString& text);

/// Clears the rectangles, as far as they lie in the image, in every frame of the pixel data: bits are 0, chrominance is
/// that of gray. An object without pixel data stays as it is.
/// @return empty, or why the pixels cannot be cleared; the object must not be used then.
CString BlackOut(CDcmIOD& object, const std::vector<SRectangle>& rectangles, const CString& name,
                 const CReport& report);
