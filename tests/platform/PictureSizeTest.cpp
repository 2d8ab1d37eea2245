#include "Varnotix/platform/PictureSize.h"

#include <climits>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

using namespace Varnotix;

namespace
{
/// A header of 300 columns and 200 rows. The picture data segment holds a thumbnail's frame header of another size,
/// and fill bytes stand before the real one.
std::vector<BYTE> Header(BYTE frameMarker)
{
    return {
        0xFF, 0xD8,                                                                   // start of image
        0xFF, 0xE1, 0x00, 0x0D,                                                       // application segment of 13 bytes
        0xFF, 0xC0, 0x00, 0x08,        0x08, 0x00, 0x10, 0x00, 0x20, 0x00, 0x00,      // that holds a thumbnail, 32 x 16
        0xFF, 0xC4, 0x00, 0x02,                                                       // Huffman tables: no frame header
        0xFF, 0xFF, 0xFF, frameMarker, 0x00, 0x08, 0x08, 0x00, 0xC8, 0x01, 0x2C, 0x01 // frame, 200 rows, 300 columns
    };
}

/// The size as columns times 65536 plus rows; 0 when there is none. The bytes are copied into a vector of exactly
/// their number, so that the address sanitizer sees a read past them.
int SizeOf(const std::vector<BYTE>& bytes)
{
    const std::vector<BYTE> exact(bytes.begin(), bytes.end());
    int width = -1;
    int height = -1;
    if (!ReadJpegSize(exact.data(), exact.size(), width, height))
    {
        EXPECT_TRUE(width == -1 && height == -1);
        return 0;
    }
    return width * 65536 + height;
}

constexpr int kExpected = 300 * 65536 + 200;
} // namespace

TEST(PictureSizeTest, EveryKindOfFrameHeaderGivesTheSize)
{
    for (int marker = 0xC0; marker <= 0xCF; ++marker)
    {
        const bool isFrame = marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        EXPECT_EQ(SizeOf(Header(static_cast<BYTE>(marker))), isFrame ? kExpected : 0) << marker;
    }
}

TEST(PictureSizeTest, AHeaderCutAnywhereGivesNothing)
{
    const std::vector<BYTE> whole = Header(0xC2);
    for (std::size_t length = 0; length < whole.size(); ++length)
    {
        EXPECT_EQ(SizeOf({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)}), 0) << length;
    }
}

TEST(PictureSizeTest, WhatIsNoPictureGivesNothing)
{
    EXPECT_EQ(SizeOf({0xFF, 0xD8, 0xFF, 0xD9}), 0);
    EXPECT_EQ(SizeOf({0xFF, 0xD8, 0xFF, 0xE0, 0x00, 0x00, 0xFF, 0xC0}), 0);
    for (const std::ptrdiff_t fromEnd : {4, 2}) // Rows, columns: 200 and 256 + 44.
    {
        std::vector<BYTE> without = Header(0xC0);
        std::fill_n(without.end() - 1 - fromEnd, 2, BYTE{0});
        EXPECT_EQ(SizeOf(without), 0);
    }
}

TEST(PictureSizeTest, HimetricRoundsToTheNearestPixel)
{
    EXPECT_EQ(HimetricToPixels(2540, 96), 96);
    EXPECT_EQ(HimetricToPixels(13, 96), 0);
    EXPECT_EQ(HimetricToPixels(14, 96), 1);
    EXPECT_EQ(HimetricToPixels(INT_MAX, INT_MAX), INT_MAX);
}
