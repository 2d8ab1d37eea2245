#include "Varnotix/platform/String.h"

#include <climits>
#include <gtest/gtest.h>

TEST(StringTest, AZeroPaddedUidEqualsItsUid)
{
    const CString padded("1.2.840\0", 8);
    EXPECT_EQ(padded.GetLength(), 8);
    EXPECT_TRUE(padded == CString("1.2.840"));
    EXPECT_TRUE("1.2.840" == padded);
    EXPECT_FALSE(padded != "1.2.840");
    EXPECT_TRUE(CString("a\0x", 3) == CString("a\0y", 3));
    EXPECT_EQ(padded.View().size(), 8u);
    EXPECT_EQ(padded.CText(), "1.2.840");
}

TEST(StringTest, OrdersByBytesWithoutSign)
{
    EXPECT_TRUE("b" > CString("a"));
    EXPECT_GT(CString("\xE9").Compare("z"), 0);
    EXPECT_EQ(CString("PaTient").CompareNoCase("pAtIENT"), 0);
    EXPECT_GT(CString("\xE9").CompareNoCase("Z"), 0);
    EXPECT_LT(CString("ab").CompareNoCase("abc"), 0);
}

TEST(StringTest, NullAndNegativeLengthsGiveAnEmptyText)
{
    const char* nothing = nullptr;
    for (const CString& empty : {CString(nothing), CString(nothing, 5), CString("abc", -1), CString('x', -1)})
    {
        EXPECT_TRUE(empty.IsEmpty());
    }
    CString text = "abc";
    text += nothing;
    EXPECT_EQ(text, "abc");
    EXPECT_EQ(text.Find(nothing), -1);
    EXPECT_EQ(text.SpanExcluding(nothing), "abc");
    EXPECT_EQ(CString().Compare(nothing), 0);
    text = nothing;
    EXPECT_TRUE(text.IsEmpty());
}

TEST(StringTest, PartsAreClampedToTheText)
{
    const CString text = "abcdef";
    EXPECT_EQ(text.Mid(4, INT_MAX) + "|" + text.Mid(-3, 2) + "|" + text.Mid(99) + text.Mid(1, -1), "ef|ab|");
    EXPECT_EQ(text.Left(99) + "|" + text.Left(-1), "abcdef|");
    EXPECT_EQ(text.Right(2) + "|" + text.Right(99) + "|" + text.Right(-1), "ef|abcdef|");
    EXPECT_EQ(CString("10\\20").SpanExcluding("\\="), "10");
}

TEST(StringTest, TrimsAllSixKindsOfWhiteSpaceAndNothingElse)
{
    CString text = " \t\n\v\f\rA B\r\f\v\n\t ";
    text.TrimRight();
    EXPECT_EQ(text, " \t\n\v\f\rA B");
    text.Trim();
    EXPECT_EQ(text, "A B");
    for (CString kept : {CString("\xA0"), CString("x\0", 2)})
    {
        const int length = kept.GetLength();
        kept.Trim();
        EXPECT_EQ(kept.GetLength(), length);
    }
    // Case conversion knows ASCII only.
    text = "aZ@[`{\xE9\xC9";
    text.MakeUpper();
    EXPECT_EQ(text, "AZ@[`{\xE9\xC9");
    text.MakeLower();
    EXPECT_EQ(text, "az@[`{\xE9\xC9");
}
