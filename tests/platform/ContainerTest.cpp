#include "Bytes.h"
#include "Varnotix/platform/Lists.h"

#include <gtest/gtest.h>

TEST(ArrayTest, GrowingFillsWithZeroEvenAfterShrinking)
{
    CByteArray bytes = Bytes({1, 2, 3, 4});
    bytes.SetSize(1);
    bytes.SetSize(4);
    bytes.SetAtGrow(6, 9);
    bytes.InsertAt(9, 8);
    EXPECT_TRUE(bytes == Bytes({1, 0, 0, 0, 0, 0, 9, 0, 0, 8}));
}

TEST(ArrayTest, TakesPiecesOfItself)
{
    CByteArray bytes = Bytes({1, 2, 3});
    EXPECT_EQ(bytes.Append(bytes), 3);
    EXPECT_TRUE(bytes == Bytes({1, 2, 3, 1, 2, 3}));
    bytes.AppendRaw(bytes.GetData() + 1, 2);
    EXPECT_TRUE(bytes == Bytes({1, 2, 3, 1, 2, 3, 2, 3}));
    bytes.Assign(bytes.GetData() + 2, 2);
    EXPECT_TRUE(bytes == Bytes({3, 1}));
    CStringArray texts;
    texts.Add("long enough to be kept on the heap by every library");
    texts.Add(texts[0]);
    EXPECT_STREQ(texts[1], "long enough to be kept on the heap by every library");
}

TEST(ArrayTest, WhatCannotBeThrowsAndChangesNothing)
{
    CByteArray bytes = Bytes({1});
    EXPECT_THROW(bytes.GetAt(1), std::out_of_range);
    EXPECT_THROW(bytes.SetAt(1, 0), std::out_of_range);
    EXPECT_THROW(bytes.InsertAt(-1, 0), std::out_of_range);
    EXPECT_THROW(bytes.SetAtGrow(-1, 0), std::out_of_range);
    EXPECT_THROW(bytes.RemoveAt(0, 2), std::out_of_range);
    EXPECT_THROW(bytes.SetSize(-1), CMemoryException);
    EXPECT_THROW(bytes.AppendRaw(bytes.GetData(), INT_MAX), CMemoryException);
    EXPECT_THROW(bytes.SetAtGrow(INT_MAX, 1), CMemoryException);
    EXPECT_TRUE(bytes == Bytes({1}));
}

TEST(ListTest, PositionsStayWithTheirEntriesWhileOthersComeAndGo)
{
    CStringList list;
    for (const char* text : {"b", "drop", "d", "drop", "drop"})
    {
        list.AddTail(text);
    }
    for (POSITION next = list.GetHeadPosition(); next != nullptr;)
    {
        const POSITION current = next;
        if (list.GetNext(next) == CString("drop"))
        {
            list.RemoveAt(current);
        }
    }
    const POSITION last = list.GetTailPosition();
    list.InsertBefore(last, "c");
    list.InsertAfter(last, "e");
    list.AddHead("a");
    EXPECT_STREQ(list.GetAt(last), "d");
    EXPECT_EQ(list.Find("d"), last);
    EXPECT_EQ(list.Find("d", last), nullptr);
    EXPECT_TRUE(list.FindIndex(3) == last && list.FindIndex(5) == nullptr && list.FindIndex(-1) == nullptr);
    CStringList copy(list);
    copy.RemoveAt(copy.FindIndex(2));
    EXPECT_STREQ(copy.RemoveHead(), "a");
    EXPECT_STREQ(copy.RemoveTail(), "e");
    copy = list;
    std::string forward;
    std::string backward;
    for (const CString& text : copy)
    {
        forward += text;
    }
    for (POSITION previous = copy.GetTailPosition(); previous != nullptr;)
    {
        backward += copy.GetPrev(previous);
    }
    EXPECT_EQ(forward + backward, "abcdeedcba");
}

TEST(ListTest, WhatIsNotThereThrows)
{
    CObList list;
    EXPECT_THROW(list.GetHead(), std::out_of_range);
    EXPECT_THROW(list.RemoveTail(), std::out_of_range);
    POSITION none = list.GetHeadPosition();
    EXPECT_THROW(list.GetNext(none), std::out_of_range);
    EXPECT_THROW(list.RemoveAt(none), std::out_of_range);
}
