// How raw bytes become values, and when a value counts as empty.

#include "Elements.h"

#include <gtest/gtest.h>

namespace
{

std::vector<std::string> TextsOf(int group, int element, std::string_view value)
{
    const CDcmElement made(group, element, TextBytes(value));
    return Lines(*made.Texts());
}

using Texts = std::vector<std::string>;

} // namespace

TEST(RawText, KeepsEmptyValuesButTheLast)
{
    EXPECT_EQ(TextsOf(0x0008, 0x0008, "A\\\\C"), (Texts{"A", "", "C"}));
    EXPECT_EQ(TextsOf(0x0008, 0x0008, "A\\"), (Texts{"A"}));
    EXPECT_EQ(TextsOf(0x0008, 0x0008, "A\\\\"), (Texts{"A", ""}));
    EXPECT_EQ(TextsOf(0x0008, 0x0008, "\\A"), (Texts{"", "A"}));
    EXPECT_EQ(TextsOf(0x0008, 0x0008, "\\"), (Texts{""}));
}

TEST(RawNumbers, DropAPartialLastOne)
{
    EXPECT_EQ(CDcmElement(0x0028, 0x0010, Bytes({1})).Words()->GetSize(), 0);
    EXPECT_EQ(CDcmElement(0x0028, 0x0010, Bytes({1, 2, 3})).Words()->GetSize(), 1);
    EXPECT_EQ(CDcmElement(0x0018, 0x6020, Bytes({1, 2, 3, 4, 5, 6, 7})).Integers()->GetSize(), 1);
    EXPECT_EQ(CDcmElement(0x0018, 0x605A, Bytes({1, 2, 3, 4, 5, 6, 7})).Floats()->GetSize(), 1);
    EXPECT_EQ(CDcmElement(0x0018, 0x9079, Bytes({1, 2, 3, 4, 5, 6, 7, 8, 9})).Doubles()->GetSize(), 1);
    // Raw bytes of no length change nothing.
    CDcmElement name(0x0010, 0x0010, TextBytes("DOE"));
    name.SetRawBytes(CByteArray());
    EXPECT_STREQ(name.JoinedText(), "DOE");
    EXPECT_EQ(name.RawBytes().Size(), 3U);
}

TEST(Emptiness, OfTextsMeansThatEveryTextIsEmpty)
{
    EXPECT_FALSE(CDcmElement(0x0008, 0x0008, TextBytes("\\\\A")).IsEmptyValue());
    EXPECT_FALSE(CDcmElement(0x0010, 0x0010, TextBytes("\\")).IsEmptyValue());
    CDcmElement type(0x0008, 0x0008, TextBytes("\\\\"));
    EXPECT_EQ(type.Texts()->GetSize(), 2);
    EXPECT_TRUE(type.IsEmptyValue());
    type.Encode();
    EXPECT_EQ(type.EncodedValueSize(), 0U);
}

TEST(Pruning, DropsEmptyItemsAtEveryDepthUnlessNoneWouldStay)
{
    const std::unique_ptr<CDcmElement> sequence(
        MakeSequence(0x0008, 0x1120,
                     {new CDcmElement(0x0008, 0x1150),
                      MakeSequence(0x0008, 0x1140, {new CDcmElement(0x0008, 0x1150), MakeText(0x0008, 0x1155, "1")}),
                      MakeSequence(0x0008, 0x1145, {new CDcmElement(0x0008, 0x1150)})}));
    sequence->PruneEmptyItems();
    EXPECT_EQ(Listing(*sequence->Items()), (Texts{"00081140="}));
    EXPECT_EQ(Listing(*sequence->Items()->GetAt(0)->Items()), (Texts{"00081155=1"}));

    const std::unique_ptr<CDcmElement> empty(MakeSequence(0x0008, 0x1120, {new CDcmElement(0x0008, 0x1150)}));
    empty->PruneEmptyItems();
    EXPECT_EQ(empty->Items()->GetCount(), 1);
}
