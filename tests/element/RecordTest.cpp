#include "Elements.h"
#include "Varnotix/element/DcmFrameList.h"

#include <gtest/gtest.h>

TEST(Record, RawReceivesTheElementsBytes)
{
    CDcmElement element(0x0028, 0x0030, TextBytes("1\\2"));
    element.SetRead();
    CDmElement record;
    record.m_value = Bytes({9, 9, 9, 9, 9});
    element.Exchange(record);
    EXPECT_TRUE(record.m_present);
    EXPECT_TRUE(record.IsEqualGroupElement(0x0028, 0x0030));
    EXPECT_TRUE(record.IsEqualVr(VR_DS));
    EXPECT_EQ(record.m_vm, 2);
    EXPECT_EQ(record.m_name + "|" + record.m_vrText, "Pixel Spacing|DS");
    EXPECT_EQ(Numbers(record.m_value), Numbers(TextBytes("1\\2")));
}

TEST(Record, NotRawCarriesItsBytesIntoTheElement)
{
    CDcmElement element(0x0028, 0x0030, TextBytes("1\\2"));
    CDmElement record(false);
    element.Exchange(record); // No bytes: nothing to carry.
    EXPECT_STREQ(CDcmElement(element).JoinedText(), "1\\2");
    record.m_value = TextBytes("3\\4\\5");
    element.Exchange(record);
    EXPECT_STREQ(element.JoinedText(), "3\\4\\5");
    EXPECT_EQ(element.RawBytes().Text(), "1\\2");

    CDcmElement pixels(0x7FE0, 0x0010, VR_OB);
    pixels.SetBytes(Bytes({1}));
    pixels.SetBytes(Bytes({2}));
    pixels.Exchange(record);
    ASSERT_EQ(pixels.Frames()->GetCount(), 1);
    EXPECT_EQ(pixels.Frames()->GetFrame(0)->Size(), 5U);
}
