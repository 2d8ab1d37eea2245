// Pictures written out in tests.
#pragma once

#include <string>

/// A JPEG of an even number of bytes that holds no picture: the segments that give its size, and its end.
/// @param frameMarker 0xC0 baseline, 0xC2 progressive (ISO/IEC 10918-1, table B.1).
/// @param application text of an application segment, as cameras write it before the size.
inline std::string Jpeg(int frameMarker, int columns, int rows, const std::string& application = "")
{
    const auto word = [](std::size_t value) {
        return std::string{static_cast<char>(value >> 8U & 0xFFU), static_cast<char>(value & 0xFFU)};
    };
    std::string bytes = "\xFF\xD8"; // Start of image.
    if (!application.empty())
    {
        bytes += "\xFF\xE1" + word(application.size() + 2) + application;
    }
    bytes += '\xFF';
    bytes += static_cast<char>(frameMarker);
    bytes += word(11) + '\x08' + word(static_cast<std::size_t>(rows)) + word(static_cast<std::size_t>(columns));
    bytes += std::string("\x01\x01\x11\x00", 4); // One component.
    bytes += "\xFF\xD9";                         // End of image.
    if (bytes.size() % 2 != 0)
    {
        bytes += '\0';
    }
    return bytes;
}
