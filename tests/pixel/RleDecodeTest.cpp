#include "RleFrames.h"

#include <gtest/gtest.h>

using Row = std::vector<int>;

TEST(RleDecode, FillsWhatASegmentLacksWithZerosAndLeavesWhatIsMore)
{
    const CByteArray segment(Bytes({2, 1, 2, 3, 0x80, 0xFE, 9}));
    const Row filled = {1, 2, 3, 9, 9, 9, 0, 0};
    EXPECT_EQ(Decoded(Image(1, 4, 16, "MONOCHROME2"), RleFrame({segment})), filled);
    EXPECT_EQ(Decoded(Image(3, 1, 12, "MONOCHROME2"), RleFrame({segment})), (Row{1, 2, 3}));
    EXPECT_EQ(Decoded(Image(2, 4, 1, "MONOCHROME2"), RleFrame({segment})), Row());
    EXPECT_EQ(Decoded(Image(1, 3, 8, "RGB"), RleFrame({Bytes({0, 1, 0x81, 2})})), (Row{1, 2, 2}));
    CByteArray inPlace(RleFrame({segment}));
    Image(2, 4, 8, "MONOCHROME2").DcmRleDecode(inPlace, inPlace);
    EXPECT_EQ(Numbers(inPlace), filled);
}

TEST(RleDecode, TheLastSegmentEnds64BytesBeforeTheInput)
{
    CByteArray runs;
    Row all;
    for (int i = 0; i < 40; ++i)
    {
        runs.Append(Bytes({0xFF, i}));
        all.insert(all.end(), {i, i});
    }
    Row cut(all.begin(), all.begin() + 16); // Eight runs, in the 16 bytes that are left of 80.
    cut.resize(80);
    EXPECT_EQ(Decoded(Image(8, 10, 8, "MONOCHROME2"), RleFrame({runs}, 0)), cut);
    EXPECT_EQ(Decoded(Image(8, 10, 8, "MONOCHROME2"), RleFrame({runs}, 64)), all);
    // The segments before it end where the next one starts.
    all.insert(all.end(), cut.begin(), cut.end());
    EXPECT_EQ(Decoded(Image(8, 10, 8, "YBR_FULL"), RleFrame({runs, runs}, 0)), all);
    // A literal may reach beyond its segment: the first one holds only the control byte.
    EXPECT_EQ(Decoded(Image(1, 4, 8, "RGB"), RleFrame({Bytes({3}), Bytes({1, 2, 3, 4})})),
              (Row{1, 2, 3, 4, 2, 3, 0, 0}));
}

TEST(RleDecode, InterleavesTwoSegmentsOfAGreyOrPaletteImageAndAppendsOthers)
{
    const CByteArray frame(RleFrame({Bytes({1, 1, 2}), Bytes({0xFF, 9})}));
    for (const char* photometric : {"MONOCHROME1", "MONOCHROME2", "PALETTE COLOR"})
    {
        EXPECT_EQ(Decoded(Image(1, 2, 8, photometric), frame), (Row{1, 9, 2, 9})) << photometric;
    }
    // Each segment has the capacity of the whole 16-bit image: high bytes first, then as many zeros.
    EXPECT_EQ(Decoded(Image(1, 2, 16, "MONOCHROME2"), frame), (Row{1, 9, 2, 9, 0, 0, 0, 0}));
    // Any other segments are appended.
    const CByteArray one(Bytes({1, 1, 2}));
    const CByteArray two(Bytes({0xFF, 3}));
    const auto appended = [](const char* photometric, const std::vector<CByteArray>& segments)
    {
        CByteArray pixels(Bytes({77}));
        Image(1, 2, 8, photometric).DcmRleDecode(RleFrame(segments), pixels);
        return Numbers(pixels);
    };
    EXPECT_EQ(appended("MONOCHROME2", {one, two, one}), (Row{77, 1, 2, 3, 3, 1, 2}));
    EXPECT_EQ(appended("RGB", {one, two}), (Row{77, 1, 2, 3, 3}));
    EXPECT_EQ(appended("YBR_FULL", {one, two, two}), (Row{77, 1, 2, 3, 3, 3, 3}));
    EXPECT_EQ(appended("", {one, two}), (Row{77, 1, 2, 3, 3}));
    EXPECT_EQ(appended("RGB", {}), Row{77});
    // The other layouts replace what the array held.
    EXPECT_EQ(appended("", {one}), (Row{1, 2}));
    EXPECT_EQ(appended("MONOCHROME1", {one, two}), (Row{1, 3, 2, 3}));
    EXPECT_EQ(appended("RGB", {one, two, one}), (Row{1, 3, 1, 2, 3, 2}));
}

TEST(RleDecode, TheFirstBytesOfTheDataEndTheFifteenthSegment)
{
    const auto fifteenth = [](DWORD dataStart)
    {
        CByteArray frame(Zeros(kRleHeader + 4));
        PutNumber(frame, 0, 15);
        for (int segment = 0; segment < 15; ++segment)
        {
            PutNumber(frame, 4 + 4 * segment, kRleHeader + 4);
        }
        PutNumber(frame, kRleHeader, dataStart);
        frame.Append(Bytes({0xFF, 9, 0xFF, 8}));
        frame.Append(Zeros(64));
        const Row pixels = Decoded(Image(1, 4, 8, ""), frame);
        EXPECT_EQ(pixels.size(), 60U);
        return Row(pixels.end() - 4, pixels.end());
    };
    EXPECT_EQ(fifteenth(kRleHeader + 6), (Row{9, 9, 0, 0}));
    EXPECT_EQ(fifteenth(kRleHeader + 8), (Row{9, 9, 8, 8}));
    EXPECT_EQ(fifteenth(0), (Row{9, 9, 8, 8}));
    EXPECT_EQ(fifteenth(1), Row(4));
}

TEST(RleDecode, LeavesASixteenthSegmentWithoutData)
{
    CByteArray frame(Zeros(kRleHeader));
    PutNumber(frame, 0, 16);
    frame.Append(Bytes({kRleHeader + 4, 0, 0, 0, 0xFF, 9, 0xFF, 8}));
    frame.Append(Zeros(64));
    EXPECT_EQ(Decoded(Image(1, 4, 8, ""), frame), Row(64));
}

TEST(RleDecodeHostile, SizesThatNoArrayHoldsThrowBeforeAnythingIsAllocated)
{
    CByteArray pixels(Bytes({1}));
    const CByteArray one(RleFrame({Bytes({1, 1, 2})}));
    EXPECT_THROW(Image(65535, 65535, 8, "RGB").DcmRleDecode(one, pixels), CMemoryException);
    EXPECT_THROW(Image(65535, 32768, 8, "RGB").DcmRleDecode(RleFrame({one, one}), pixels), CMemoryException);
    EXPECT_THROW(Image(1, 65535, 65535, "RGB").DcmRleDecode(RleFrame(std::vector<CByteArray>(5, one)), pixels),
                 CMemoryException);
    EXPECT_EQ(Numbers(pixels), Row{1});
    EXPECT_EQ(Decoded(Image(0, 65535, 65535, "RGB"), one), Row());
}
