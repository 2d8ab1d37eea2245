#include "codestream/Comments.h"

std::string CommentsOf(const BYTE* bytes, std::size_t size)
{
    constexpr std::size_t kHeader = 4; // A marker and a length, which counts its own two bytes.
    constexpr BYTE kJpegScan = 0xDA;
    constexpr BYTE kJpegComment = 0xFE;
    constexpr BYTE kFirstApplication = 0xE0;
    constexpr BYTE kLastApplication = 0xEF;
    constexpr BYTE kTile = 0x90;
    constexpr BYTE kJpeg2000Comment = 0x64;

    std::string comments;
    const bool isJpeg = size > 2 && bytes[0] == 0xFF && bytes[1] == 0xD8;
    const bool isJpeg2000 = size > 2 && bytes[0] == 0xFF && bytes[1] == 0x4F;
    for (std::size_t place = 2; (isJpeg || isJpeg2000) && size - place >= kHeader && bytes[place] == 0xFF;)
    {
        const BYTE marker = bytes[place + 1];
        if (isJpeg && marker == 0xFF)
        {
            ++place; // A fill byte.
            continue;
        }
        const std::size_t length = static_cast<std::size_t>(bytes[place + 2]) << 8U | bytes[place + 3];
        if (marker == (isJpeg ? kJpegScan : kTile) || length < 2 || length > size - place - 2)
        {
            break;
        }
        const bool isApplication = isJpeg && marker >= kFirstApplication && marker <= kLastApplication;
        if (isApplication || marker == (isJpeg ? kJpegComment : kJpeg2000Comment))
        {
            comments.append(reinterpret_cast<const char*>(bytes) + place + kHeader, length - 2);
            comments += '\n';
        }
        place += 2 + length;
    }
    return comments;
}
