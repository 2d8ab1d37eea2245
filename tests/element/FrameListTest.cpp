#include "Bytes.h"
#include "Varnotix/element/DcmFrameList.h"

#include <gtest/gtest.h>

TEST(FrameList, NumbersFramesByTheCountBeforeThem)
{
    CDcmFrameList frames;
    frames.AddFrame(Bytes({1}));
    CWordArray words;
    words.Add(0x0102);
    words.Add(0x0304);
    frames.AddFrame(words);
    EXPECT_EQ(Numbers(frames.GetFrame(1)->Array()), Numbers(Bytes({2, 1, 4, 3})));
    frames.SetFrame(0, Bytes({8, 9}));
    frames.SetFrame(3, Bytes({7}));
    ASSERT_EQ(frames.GetCount(), 3);
    EXPECT_EQ(Numbers(frames.GetFrame(0)->Array()), Numbers(Bytes({1, 8, 9})));
    EXPECT_EQ(frames.GetFrame(1)->Number(), 1);
    EXPECT_EQ(frames.GetFrame(2)->Number(), 3);
    EXPECT_EQ(frames.GetFrame(3), nullptr);
    EXPECT_EQ(frames.TotalSize(), 8U);
}

TEST(FrameList, EqualityComparesFrameSizesOnly)
{
    CDcmFrameList left;
    CDcmFrameList right;
    left.AddFrame(Bytes({1, 2}));
    right.AddFrame(Bytes({3, 4}));
    right.SetOffsetTable(Bytes({0, 0, 0, 0}));
    EXPECT_TRUE(left == right);
    right.SetFrame(0, Bytes({5}));
    EXPECT_FALSE(left == right);
    EXPECT_FALSE(left == CDcmFrameList());
}

TEST(FrameList, CopyOfAFrameThatWasHandedOutHasBytesOfItsOwn)
{
    CDcmFrameList source;
    source.AddFrame(Join({Bytes({1, 2, 3}), Zeros(20)}));
    source.SetOffsetTable(Bytes({0, 0, 0, 0}));
    const CDcmFrameList shared(source);
    EXPECT_EQ(shared.GetFrame(0)->Data(), source.GetFrame(0)->Data());
    source.GetFrame(0)->Array()[0] = 9;
    const CDcmFrameList copy(source);
    source.GetFrame(0)->Array()[1] = 8;
    EXPECT_EQ(HexText(shared.GetFrame(0)->Data(), 3) + HexText(copy.GetFrame(0)->Data(), 3), "010203090203");
    EXPECT_EQ(copy.OffsetTable().GetSize(), 4);
}
