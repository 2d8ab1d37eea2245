#include "StreamBytes.h"

#include <gtest/gtest.h>

namespace
{

const Bytes kOpenOb = Stream("E07F 1000 'OB' 0000 FFFFFFFF");
const Bytes kEnd = Stream("FEFF DDE0 00000000");

Bytes Item(const Bytes& content)
{
    Bytes item = Stream("FEFF 00E0 00000000");
    item[4] = static_cast<BYTE>(content.size());
    return item + content;
}

std::string Frames(const SRead& read)
{
    return Show(read.set);
}

} // namespace

TEST(PixelData, ValueOfDefinedLengthIsOneFrame)
{
    EXPECT_EQ(Frames(SRead(Stream("E07F 1000 'OB' 0000 03000000 010203"))), "7fe00010 OB 0:010203");
    EXPECT_EQ(Frames(SRead(Stream("E07F 1000 'OW' 0000 04000000 01020304"))), "7fe00010 OW 0:01020304");
    // Words are swapped in big endian, both ways; bytes are not.
    for (const char* stream : {"7FE0 0010 'OW' 0000 00000004 02010403", "7FE0 0010 'OB' 0000 00000004 01020304"})
    {
        SRead big(Stream(stream));
        EXPECT_EQ(Frames(big).substr(11), " 0:01020304");
        EXPECT_EQ(HexText(Written(big.set, SYNTAX_EXPLICIT_BIG)), HexText(Stream(stream)));
    }
    // The stream's VR stays with pixel data; without one it is that of the dictionary.
    SRead implicit(Stream("2800 0200 02000000 0100 E07F 1000 04000000 01020304"));
    EXPECT_EQ(Show(implicit.set), "00280002 US 1; 7fe00010 OB 0:01020304");
    EXPECT_EQ(Show(SRead(Stream("E07F 1000 'UN' 0000 02000000 0102")).set), "7fe00010 UN 0:0102");
}

TEST(PixelData, FragmentsWithoutOffsetTableAreFrames)
{
    const Bytes stream = kOpenOb + Item({}) + Item({1, 2}) + Item({3, 4, 5, 6}) + Item({}) + kEnd;
    SRead read(stream);
    EXPECT_EQ(Frames(read), "7fe00010 OB 0:0102 1:03040506 2:");
    EXPECT_EQ(HexText(Written(read.set, SYNTAX_EXPLICIT_LITTLE)), HexText(stream));
    // A lone delimiter in place of the table: no frames, and nothing to write but an empty value.
    SRead none(kOpenOb + kEnd);
    EXPECT_EQ(Frames(none), "7fe00010 OB");
    EXPECT_EQ(HexText(Written(none.set, SYNTAX_EXPLICIT_LITTLE)), HexText(Stream("E07F 1000 'OB' 0000 00000000")));
}

TEST(PixelData, OneEncapsulatedFrameIsWrittenWithDefinedLength)
{
    SRead read(kOpenOb + Item({}) + Item({1, 2, 3, 4}) + kEnd);
    EXPECT_EQ(HexText(Written(read.set, SYNTAX_EXPLICIT_LITTLE)),
              HexText(Stream("E07F 1000 'OB' 0000 04000000 01020304")));
}

TEST(PixelData, FragmentIsStoredBeforeTheFrameNumberMovesOn)
{
    // Two frames of two fragments: offsets 0 and 20. Each frame's second fragment goes to the next number.
    const Bytes table = Stream("00000000 14000000");
    const Bytes stream = kOpenOb + Item(table) + Item({1, 2}) + Item({3, 4}) + Item({5, 6}) + Item({7, 8}) + kEnd;
    SRead read(stream);
    EXPECT_EQ(Frames(read), "7fe00010 OB 0:0102 1:03040506 2:0708");
    // The fragments are remembered, so the offsets still hold when the frames are written.
    EXPECT_EQ(HexText(Written(read.set, SYNTAX_EXPLICIT_LITTLE)), HexText(stream));
    // An offset where no fragment begins keeps all that follows in one frame; so does a table that is used up.
    EXPECT_EQ(Frames(SRead(kOpenOb + Item(Stream("01000000")) + Item({1}) + Item({2}) + kEnd)), "7fe00010 OB 0:0102");
    EXPECT_EQ(Frames(SRead(kOpenOb + Item(Stream("00000000")) + Item({1}) + Item({2}) + Item({3}) + kEnd)),
              "7fe00010 OB 0:01 1:0203");
    // A table that is no whole number of entries is never read past its end.
    EXPECT_EQ(Frames(SRead(kOpenOb + Item(Stream("0000")) + Item({1}) + Item({2}) + kEnd)), "7fe00010 OB 0:0102");
}

TEST(PixelData, OffsetTableThatNoLongerFitsIsWrittenEmpty)
{
    const Bytes stream = kOpenOb + Item(Stream("00000000 0A000000")) + Item({1, 2}) + Item({3, 4}) + kEnd;
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
            EXPECT_EQ(Frames(read), "7fe00010 OB 0:0102") << item << " " << delimiter;
        }
    }
}

TEST(PixelData, EncapsulatedFramesAreSwappedInBigEndianBothWays)
{
    const Bytes words = Stream("7FE0 0010 'OW' 0000 FFFFFFFF"
                               "FFFE E000 00000004 00000000" // the table's entries stay little endian
                               "FFFE E000 00000002 0201"     // fragments of words are swapped
                               "FFFE E000 00000004 04030605" //
                               "FFFE E0DD 00000000");
    SRead read(words);
    EXPECT_EQ(Frames(read), "7fe00010 OW 0:0102 1:03040506");
    EXPECT_EQ(HexText(Written(read.set, SYNTAX_EXPLICIT_BIG)), HexText(words));
}
