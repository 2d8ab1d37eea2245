#include "Varnotix/platform/PictureSize.h"

#include "Varnotix/platform/File.h"

#include <climits>

#include <algorithm>

namespace Varnotix
{

namespace
{

// Marker codes (ISO/IEC 10918-1, table B.1).
constexpr BYTE kStartOfImage = 0xD8;
constexpr BYTE kEndOfImage = 0xD9;
constexpr BYTE kStartOfScan = 0xDA;
constexpr BYTE kFirstRestart = 0xD0;
constexpr BYTE kTemporary = 0x01;

/// Frame headers are C0 to CF, but for the Huffman tables, the reserved code and the arithmetic conditioning.
bool IsFrameHeader(BYTE marker)
{
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

bool StandsAlone(BYTE marker)
{
    return marker == kTemporary || (marker >= kFirstRestart && marker < kStartOfImage);
}

int Word(const BYTE* bytes)
{
    return bytes[0] << 8 | bytes[1];
}

} // namespace

bool ReadJpegSize(const BYTE* bytes, std::size_t count, int& width, int& height)
{
    if (bytes == nullptr || count < 2 || bytes[0] != 0xFF || bytes[1] != kStartOfImage)
    {
        return false;
    }
    std::size_t place = 2;
    while (place < count && bytes[place] == 0xFF)
    {
        while (place < count && bytes[place] == 0xFF)
        {
            ++place;
        }
        if (place == count)
        {
            break;
        }
        const BYTE marker = bytes[place++];
        if (StandsAlone(marker))
        {
            continue;
        }
        const bool frameIsMissing =
            marker == 0 || marker == kStartOfImage || marker == kEndOfImage || marker == kStartOfScan;
        if (frameIsMissing || count - place < 2)
        {
            break;
        }
        const std::size_t length = static_cast<std::size_t>(Word(bytes + place));
        if (length < 2 || length > count - place)
        {
            break;
        }
        if (IsFrameHeader(marker))
        {
            // length (2), precision (1), height (2), width (2), number of components (1)
            if (length < 8 || Word(bytes + place + 3) == 0 || Word(bytes + place + 5) == 0)
            {
                break;
            }
            height = Word(bytes + place + 3);
            width = Word(bytes + place + 5);
            return true;
        }
        place += length;
    }
    return false;
}

bool ReadPicture(const CString& path, CByteArray& bytes, WORD& width, WORD& height)
{
    CFile file(path, CFile::modeRead);
    // Two bytes identify most other files, so that a large one is not read in vain.
    BYTE start[2] = {};
    const bool begins = file.Read(start, 2) == 2 && start[0] == 0xFF && start[1] == kStartOfImage;
    const ULONGLONG length = file.GetLength();
    if (!begins || length > static_cast<ULONGLONG>(INT_MAX))
    {
        return false;
    }
    CByteArray read;
    read.SetSize(static_cast<int>(length));
    file.Seek(0, CFile::begin);
    const UINT got = file.Read(read.GetData(), static_cast<UINT>(length));
    int wide = 0;
    int high = 0;
    if (!ReadJpegSize(read.GetData(), got, wide, high))
    {
        return false;
    }
    read.SetSize(static_cast<int>(got));
    bytes.Swap(read);
    width = static_cast<WORD>(wide);
    height = static_cast<WORD>(high);
    return true;
}

int HimetricToPixels(int himetric, int dpi)
{
    const long long pixels = (static_cast<long long>(dpi) * himetric + 1270) / 2540;
    return static_cast<int>(std::clamp<long long>(pixels, INT_MIN, INT_MAX));
}

} // namespace Varnotix
