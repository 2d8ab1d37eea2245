#include "RleFrames.h"

#include <gtest/gtest.h>

namespace
{

/// The segment of a monochrome frame, after a header that is checked here. A run of 100 zeros follows the bytes, which
/// gives the encoder room to spare; what it is encoded as is taken off again.
std::vector<int> Segment(const CByteArray& bytes)
{
    CByteArray data(Join({bytes, Zeros(100)}));
    Image(1, data.GetSize(), 8, "MONOCHROME2").DcmRleEncode(data);
    const std::vector<int> encoded = Numbers(data);
    CByteArray header(Zeros(kRleHeader));
    PutNumber(header, 0, 1);
    PutNumber(header, 4, kRleHeader);
    EXPECT_EQ(std::vector<int>(encoded.begin(), encoded.begin() + kRleHeader), Numbers(header));
    EXPECT_EQ(std::vector<int>(encoded.end() - 2, encoded.end()), (std::vector<int>{0x9D, 0x00}));
    return {encoded.begin() + kRleHeader, encoded.end() - 2};
}

using Row = std::vector<int>;

} // namespace

TEST(RleEncode, RunsAndLiteralsFollowEachOther)
{
    const std::pair<CByteArray, Row> cases[] = {
        {{}, {}},
        {Bytes({5, 5, 5}), {0xFE, 5}},
        {Bytes({1, 2, 3}), {2, 1, 2, 3}},
        {Bytes({5, 5, 5, 6, 6}), {0xFE, 5, 0xFF, 6}},
        {Bytes({1, 2, 7, 7, 7, 3}), {1, 1, 2, 0xFE, 7, 0, 3}},
        // A run of two is folded only between literals.
        {Bytes({1, 2, 7, 7, 3}), {4, 1, 2, 7, 7, 3}},
        {Bytes({1, 7, 7, 2, 8, 8, 3}), {6, 1, 7, 7, 2, 8, 8, 3}},
        {Bytes({1, 2, 7, 7, 8, 8, 8}), {1, 1, 2, 0xFF, 7, 0xFE, 8}},
        {Bytes({7, 7, 1}), {0xFF, 7, 0, 1}},
        {Bytes({1, 7, 7, 8, 8, 2}), {0, 1, 0xFF, 7, 0xFF, 8, 0, 2}},
        // Long runs are cut at 128. After a literal, the rest of a run is not a run of two that could be folded.
        {Repeated(5, 128), {0x81, 5}},
        {Repeated(5, 129), {0x81, 5, 0, 5}},
        {Repeated(5, 130), {0x81, 5, 0xFF, 5}},
        {Join({Bytes({1}), Repeated(5, 129)}), {0, 1, 0x81, 5, 0, 5}},
        {Join({Bytes({1}), Repeated(5, 130), Bytes({2})}), {0, 1, 0x81, 5, 0xFF, 5, 0, 2}}};
    for (const auto& [bytes, segment] : cases)
    {
        EXPECT_EQ(Segment(bytes), segment);
    }
}

TEST(RleEncode, LiteralsEndAt128Bytes)
{
    const auto literal = [](const CByteArray& bytes) { return Numbers(Join({Bytes({bytes.GetSize() - 1}), bytes})); };
    EXPECT_EQ(Segment(Counting(1, 128)), literal(Counting(1, 128)));
    Row expected = literal(Counting(1, 128));
    expected.insert(expected.end(), {1, 129, 130});
    EXPECT_EQ(Segment(Counting(1, 130)), expected);

    // 126 bytes and a folded run of two make a full literal; with 127 the run stays a run.
    const CByteArray behind(Bytes({200, 200, 1}));
    expected = literal(Join({Counting(1, 126), Bytes({200, 200})}));
    expected.insert(expected.end(), {0, 1});
    EXPECT_EQ(Segment(Join({Counting(1, 126), behind})), expected);
    expected = literal(Counting(1, 127));
    expected.insert(expected.end(), {0xFF, 200, 0, 1});
    EXPECT_EQ(Segment(Join({Counting(1, 127), behind})), expected);
    // The byte that decides for folding may be the last of the literal itself.
    expected = literal(Join({Counting(1, 125), behind}));
    expected.insert(expected.end(), {0, 2});
    EXPECT_EQ(Segment(Join({Counting(1, 125), behind, Bytes({2})})), expected);
}

TEST(RleEncode, InputThatDoesNotShrinkStartsOverItsOwnOutput)
{
    // Two full literals of 128 bytes need two bytes more than there is room: the second moves to the start.
    CByteArray data(Counting(0, 256));
    Image(16, 16, 8, "MONOCHROME1").DcmRleEncode(data);
    ASSERT_EQ(data.GetSize(), kRleHeader + 258);
    EXPECT_EQ(data[kRleHeader], 127);
    EXPECT_EQ(data[kRleHeader + 1], 128);
    EXPECT_EQ(data[kRleHeader + 128], 255);

    // The room for less than a step is not enough for a run either: each run goes to the start.
    data = Bytes({1, 1, 2, 2});
    Image(2, 2, 8, "MONOCHROME1").DcmRleEncode(data);
    ASSERT_EQ(data.GetSize(), kRleHeader + 4);
    EXPECT_EQ(data[kRleHeader], 0xFF);
    EXPECT_EQ(data[kRleHeader + 1], 2);
    for (int size = 1; size < 6; ++size)
    {
        CByteArray tiny(Counting(0, size));
        Image(1, size, 8, "PALETTE COLOR").DcmRleEncode(tiny);
        EXPECT_EQ(tiny.GetSize(), kRleHeader + size + 1);
    }
}

TEST(RleEncode, SplitsRgbIntoPlanes)
{
    CByteArray data;
    for (int pixel = 0; pixel < 20; ++pixel)
    {
        data.Append(Bytes({1, pixel < 10 ? 2 : 3, 4}));
    }
    Image(4, 5, 8, "RGB").DcmRleEncode(data);
    CByteArray expected(Zeros(kRleHeader));
    PutNumber(expected, 0, 3);
    PutNumber(expected, 4, kRleHeader);
    PutNumber(expected, 8, kRleHeader + 2);
    PutNumber(expected, 12, kRleHeader + 6);
    expected.Append(Bytes({0xED, 1, 0xF7, 2, 0xF7, 3, 0xED, 4}));
    EXPECT_EQ(Numbers(data), Numbers(expected));
}

TEST(RleEncode, AnRgbFrameThatIsTooShortGivesEmptySegmentsAndOthersStay)
{
    CByteArray expected(Zeros(kRleHeader));
    PutNumber(expected, 0, 3);
    for (int segment = 0; segment < 3; ++segment)
    {
        PutNumber(expected, 4 + 4 * segment, kRleHeader);
    }
    CByteArray data(Repeated(7, 4 * 5 * 3 - 1));
    Image(4, 5, 8, "RGB").DcmRleEncode(data);
    EXPECT_EQ(Numbers(data), Numbers(expected));
    data = Repeated(7, 100);
    Image(65535, 65535, 8, "RGB").DcmRleEncode(data);
    EXPECT_EQ(Numbers(data), Numbers(expected));
    // Other photometric interpretations stay as they are.
    for (const char* photometric : {"YBR_FULL", ""})
    {
        data = Repeated(7, 60);
        Image(4, 5, 8, photometric).DcmRleEncode(data);
        EXPECT_EQ(Numbers(data), Numbers(Repeated(7, 60))) << photometric;
    }
}
