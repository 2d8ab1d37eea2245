#include "SmallStack.h"
#include "StreamBytes.h"

#include <gtest/gtest.h>

namespace
{

/// A text element inside as many sequences as asked for, of one item each.
CByteArray Nested(int depth)
{
    return Repeated(Stream("0800 4011 'SQ' 0000 FFFFFFFF FEFF 00E0 FFFFFFFF"), depth) +
           Stream("0800 0001 'SH' 0200 'AB'") + Repeated(Stream("FEFF 0DE0 00000000 FEFF DDE0 00000000"), depth);
}

constexpr int kMany = 1000000;

} // namespace

TEST(Hostile, SequencesAreFollowedSixtyFourLevelsDeepAndNoFurther)
{
    OnSmallStack(
        []
        {
            EXPECT_EQ(SRead(Nested(64)).set.GetCountAll(), 65);
            for (const int depth : {65, 66, 1000})
            {
                const SRead deeper(Nested(depth));
                EXPECT_EQ(deeper.set.GetCount(), 0);
                ASSERT_FALSE(deeper.parser.Trials().empty());
                EXPECT_EQ(deeper.parser.Trials().back().fault, PARSE_TOO_DEEP);
                EXPECT_EQ(deeper.parser.Trials().back().syntax, SYNTAX_EXPLICIT_LITTLE);
            }
        });
    // Empty sequences in a row count as nested.
    const CByteArray empty = Stream("0800 4011 'SQ' 0000 00000000");
    const CByteArray text = Stream("0800 0001 'SH' 0200 'AB'");
    EXPECT_EQ(SRead(Repeated(empty, 64) + text).set.GetCountAll(), 65);
    EXPECT_EQ(SRead(Repeated(empty, 65) + text).parser.Trials().back().fault, PARSE_TOO_DEEP);
    EXPECT_EQ(SRead(Repeated(empty + text, kMany / 10)).set.GetCount(), kMany / 10);
}

TEST(Hostile, MillionsOfEmptyPiecesAreReadAndWritten)
{
    const CByteArray item = Stream("FEFF 00E0 00000000");
    const CByteArray itemEnd = Stream("FEFF 0DE0 00000000");
    const CByteArray end = Stream("FEFF DDE0 00000000");
    const CByteArray pixels = Stream("E07F 1000 'OB' 0000 FFFFFFFF");
    const CByteArray sequence = Stream("0800 4011 'SQ' 0000 FFFFFFFF");

    const CByteArray fragments = pixels + item + Repeated(item, kMany) + end;
    SRead frames(fragments);
    ASSERT_EQ(frames.set.GetCount(), 1);
    EXPECT_EQ(frames.set.GetAt(0)->Frames()->GetCount(), kMany);
    EXPECT_TRUE(Written(frames.set, SYNTAX_EXPLICIT_LITTLE) == fragments);
    // With a table all of them gather in two frames.
    const CByteArray tabled = pixels + Stream("FEFF 00E0 04000000 00000000") + Repeated(item, kMany) + end;
    SRead gathered(tabled);
    ASSERT_EQ(gathered.set.GetCount(), 1);
    EXPECT_EQ(gathered.set.GetAt(0)->Frames()->GetCount(), 2);
    EXPECT_TRUE(Written(gathered.set, SYNTAX_EXPLICIT_LITTLE) == tabled);

    EXPECT_EQ(SRead(sequence + Repeated(itemEnd, kMany) + end).set.GetCountAll(), 1);
    EXPECT_EQ(SRead(sequence + Repeated(item, kMany)).set.GetCountAll(), 1);
    EXPECT_EQ(SRead(Repeated(itemEnd, kMany)).Trials(), "4:2@6 2:9@4 1:9@4");
    EXPECT_EQ(SRead(Repeated(end, kMany)).set.GetCount(), 0);
    const CByteArray text = Stream("0800 0001 'SH' 0000");
    EXPECT_EQ(SRead(sequence + Repeated(item + text, kMany / 10) + end).set.GetCountAll(), 1 + kMany / 10);
}
