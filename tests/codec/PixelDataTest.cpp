#include "StreamBytes.h"

#include <gtest/gtest.h>

namespace
{

const CByteArray kOpenOb = Stream("E07F 1000 'OB' 0000 FFFFFFFF");
const CByteArray kEnd = Stream("FEFF DDE0 00000000");

CByteArray Item(const CByteArray& content)
{
    return Stream("FEFF 00E0") + Bytes({content.GetSize(), 0, 0, 0}) + content;
}

CByteArray Item(std::initializer_list<int> content)
{
    return Item(Bytes(content));
}

/// What is read of a stream, once it was written again as the other.
std::string Through(const CByteArray& stream, const CByteArray& written)
{
    SRead read(stream);
    const int syntax = read.parser.OutputSyntax();
    const std::string shown = Show(read.set);
    EXPECT_EQ(HexText(Written(read.set, syntax)), HexText(written)) << shown;
    return shown;
}

} // namespace

TEST(PixelData, ValueOfDefinedLengthIsOneFrame)
{
    // Words are swapped in big endian, both ways; bytes are not.
    for (const auto& [text, shown] : {std::pair("E07F 1000 'OB' 0000 03000000 010203", "7fe00010 OB 0:010203"),
                                      {"E07F 1000 'OW' 0000 04000000 01020304", "7fe00010 OW 0:01020304"},
                                      {"7FE0 0010 'OW' 0000 00000004 02010403", "7fe00010 OW 0:01020304"},
                                      {"7FE0 0010 'OB' 0000 00000004 01020304", "7fe00010 OB 0:01020304"}})
    {
        EXPECT_EQ(Through(Stream(text), Stream(text)), shown);
    }
    // The stream's VR stays with pixel data; without one it is that of the dictionary.
    EXPECT_EQ(Show(SRead(Stream("2800 0200 02000000 0100 E07F 1000 04000000 01020304")).set),
              "00280002 US 1; 7fe00010 OB 0:01020304");
    EXPECT_EQ(Show(SRead(Stream("E07F 1000 'UN' 0000 02000000 0102")).set), "7fe00010 UN 0:0102");
}

TEST(PixelData, FragmentsWithoutOffsetTableAreFrames)
{
    const CByteArray stream = kOpenOb + Item({}) + Item({1, 2}) + Item({3, 4, 5, 6}) + Item({}) + kEnd;
    EXPECT_EQ(Through(stream, stream), "7fe00010 OB 0:0102 1:03040506 2:");
    // A lone delimiter in place of the table: no frames, and nothing to write but an empty value.
    EXPECT_EQ(Through(kOpenOb + kEnd, Stream("E07F 1000 'OB' 0000 00000000")), "7fe00010 OB");
    // One frame is written with a defined length.
    EXPECT_EQ(Through(kOpenOb + Item({}) + Item({1, 2, 3, 4}) + kEnd, Stream("E07F 1000 'OB' 0000 04000000 01020304")),
              "7fe00010 OB 0:01020304");
    // Big endian: the table's entries stay little endian, fragments of words are swapped.
    const CByteArray words = Stream("7FE0 0010 'OW' 0000 FFFFFFFF FFFE E000 00000004 00000000 FFFE E000 00000002 0201"
                                    "FFFE E000 00000004 04030605 FFFE E0DD 00000000");
    EXPECT_EQ(Through(words, words), "7fe00010 OW 0:0102 1:03040506");
}

TEST(PixelData, OfVrUnWithSeveralFramesIsWrittenWithoutValueButOfUndefinedLength)
{
    const CByteArray open = Stream("E07F 1000 'UN' 0000 FFFFFFFF");
    EXPECT_EQ(Through(open + Item({}) + Item({1, 2}) + Item({3, 4}) + kEnd, open), "7fe00010 UN 0:0102 1:0304");
    EXPECT_EQ(Through(open + Item({}) + Item({1, 2}) + kEnd, Stream("E07F 1000 'UN' 0000 00000000")),
              "7fe00010 UN 0:0102");
}

TEST(PixelData, FragmentIsStoredBeforeTheFrameNumberMovesOn)
{
    // Two frames of two fragments: offsets 0 and 20. Each frame's second fragment goes to the next number.
    const CByteArray table = Stream("00000000 14000000");
    const CByteArray stream = kOpenOb + Item(table) + Item({1, 2}) + Item({3, 4}) + Item({5, 6}) + Item({7, 8}) + kEnd;
    // The fragments are remembered, so the offsets still hold when the frames are written.
    EXPECT_EQ(Through(stream, stream), "7fe00010 OB 0:0102 1:03040506 2:0708");
    // An offset where no fragment begins keeps all that follows in one frame; so does a table that is used up. A table
    // that is not a whole number of entries is never read past its end.
    for (const auto& [offsets, frames] :
         {std::pair("01000000", "0:010203"), {"00000000", "0:01 1:0203"}, {"0000", "0:010203"}})
    {
        const SRead read(kOpenOb + Item(Stream(offsets)) + Item({1}) + Item({2}) + Item({3}) + kEnd);
        EXPECT_EQ(Show(read.set), std::string("7fe00010 OB ") + frames) << offsets;
    }
}

TEST(PixelData, OffsetTableThatNoLongerFitsIsWrittenEmpty)
{
    const CByteArray stream = kOpenOb + Item(Stream("00000000 0A000000")) + Item({1, 2}) + Item({3, 4}) + kEnd;
    SRead read(stream);
    CDcmFrameList& frames = *read.set.GetAt(0)->Frames();
    CByteArray& first = frames.GetFrame(0)->Array();
    first.Add(9);
    first.Add(9);
    EXPECT_EQ(HexText(Written(read.set, SYNTAX_EXPLICIT_LITTLE)),
              HexText(kOpenOb + Item({}) + Item({1, 2, 9, 9}) + Item({3, 4}) + kEnd));
    // A frame of several fragments that was changed is one fragment.
    SRead joined(kOpenOb + Item(Stream("00000000")) + Item({1}) + Item({2}) + Item({3}) + kEnd);
    joined.set.GetAt(0)->Frames()->GetFrame(1)->Array().Add(9);
    EXPECT_EQ(HexText(Written(joined.set, SYNTAX_EXPLICIT_LITTLE)),
              HexText(kOpenOb + Item(Stream("00000000")) + Item({1}) + Item({2, 3, 9}) + kEnd));
}

TEST(PixelData, TagsOfFragmentsAreKnownInFourArrangements)
{
    for (const char* item : {"00E0 FEFF", "FEFF 00E0", "E000 FFFE", "FFFE E000"})
    {
        for (const char* delimiter : {"DDE0 FEFF", "FEFF DDE0", "E0DD FFFE", "FFFE E0DD"})
        {
            const SRead read(kOpenOb + Stream(item) + Stream("00000000") + Stream(item) + Stream("02000000 0102") +
                             Stream(delimiter) + Stream("00000000"));
            EXPECT_EQ(Show(read.set), "7fe00010 OB 0:0102") << item << " " << delimiter;
        }
    }
}
