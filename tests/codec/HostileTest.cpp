#include "SmallStack.h"
#include "StreamBytes.h"

#include <gtest/gtest.h>

namespace
{

Bytes Repeated(const Bytes& start, const Bytes& piece, int count, const Bytes& end)
{
    Bytes bytes(start);
    bytes.reserve(start.size() + piece.size() * static_cast<std::size_t>(count) + end.size());
    for (int i = 0; i < count; ++i)
    {
        bytes.insert(bytes.end(), piece.begin(), piece.end());
    }
    return bytes + end;
}

/// A text element inside as many sequences as asked for, of one item each.
Bytes Nested(int depth)
{
    const Bytes opened = Repeated({}, Stream("0800 4011 'SQ' 0000 FFFFFFFF FEFF 00E0 FFFFFFFF"), depth,
                                  Stream("0800 0001 'SH' 0200 'AB'"));
    return Repeated(opened, Stream("FEFF 0DE0 00000000 FEFF DDE0 00000000"), depth, {});
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
    const Bytes empty = Stream("0800 4011 'SQ' 0000 00000000");
    const Bytes text = Stream("0800 0001 'SH' 0200 'AB'");
    EXPECT_EQ(SRead(Repeated({}, empty, 64, text)).set.GetCountAll(), 65);
    EXPECT_EQ(SRead(Repeated({}, empty, 65, text)).parser.Trials().back().fault, PARSE_TOO_DEEP);
    EXPECT_EQ(SRead(Repeated({}, empty + text, kMany / 10, {})).set.GetCount(), kMany / 10);
}

TEST(Hostile, MillionsOfEmptyPiecesAreReadAndWritten)
{
    const Bytes item = Stream("FEFF 00E0 00000000");
    const Bytes itemEnd = Stream("FEFF 0DE0 00000000");
    const Bytes end = Stream("FEFF DDE0 00000000");
    const Bytes pixels = Stream("E07F 1000 'OB' 0000 FFFFFFFF");
    const Bytes sequence = Stream("0800 4011 'SQ' 0000 FFFFFFFF");

    const Bytes fragments = Repeated(pixels + item, item, kMany, end);
    SRead frames(fragments);
    ASSERT_EQ(frames.set.GetCount(), 1);
    EXPECT_EQ(frames.set.GetAt(0)->Frames()->GetCount(), kMany);
    EXPECT_TRUE(Written(frames.set, SYNTAX_EXPLICIT_LITTLE) == fragments);
    // With a table all of them gather in two frames.
    const Bytes tabled = Repeated(pixels + Stream("FEFF 00E0 04000000 00000000"), item, kMany, end);
    SRead gathered(tabled);
    ASSERT_EQ(gathered.set.GetCount(), 1);
    EXPECT_EQ(gathered.set.GetAt(0)->Frames()->GetCount(), 2);
    EXPECT_TRUE(Written(gathered.set, SYNTAX_EXPLICIT_LITTLE) == tabled);

    EXPECT_EQ(SRead(Repeated(sequence, itemEnd, kMany, end)).set.GetCountAll(), 1);
    EXPECT_EQ(SRead(Repeated(sequence, item, kMany, {})).set.GetCountAll(), 1);
    EXPECT_EQ(SRead(Repeated({}, itemEnd, kMany, {})).Trials(), "4:2@6 2:9@4 1:9@4");
    EXPECT_EQ(SRead(Repeated({}, end, kMany, {})).set.GetCount(), 0);
    const Bytes text = Stream("0800 0001 'SH' 0000");
    EXPECT_EQ(SRead(Repeated(sequence, item + text, kMany / 10, end)).set.GetCountAll(), 1 + kMany / 10);
}
