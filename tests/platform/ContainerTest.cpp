#include "Varnotix/platform/Arrays.h"
#include "Varnotix/platform/Lists.h"
#include "Varnotix/platform/Maps.h"

#include <gtest/gtest.h>

namespace
{
CByteArray Bytes(std::initializer_list<BYTE> values)
{
    CByteArray array;
    array.Assign(std::data(values), static_cast<int>(values.size()));
    return array;
}
} // namespace

TEST(ArrayTest, GrowingFillsWithZeroEvenAfterShrinking)
{
    CByteArray bytes = Bytes({1, 2, 3, 4});
    bytes.SetSize(1);
    bytes.SetSize(4);
    EXPECT_TRUE(bytes == Bytes({1, 0, 0, 0}));
    bytes.SetAtGrow(6, 9);
    EXPECT_TRUE(bytes == Bytes({1, 0, 0, 0, 0, 0, 9}));
    bytes.InsertAt(9, 8);
    EXPECT_TRUE(bytes == Bytes({1, 0, 0, 0, 0, 0, 9, 0, 0, 8}));
    CDoubleArray numbers;
    numbers.SetSize(2);
    EXPECT_EQ(numbers[1], 0.0);
    CObArray objects;
    objects.SetSize(1);
    EXPECT_EQ(objects[0], nullptr);
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
    texts.Assign(texts.GetData() + 1, 1);
    EXPECT_STREQ(texts[0], "long enough to be kept on the heap by every library");
}

TEST(ArrayTest, CheckedAccessThrowsOutside)
{
    CByteArray bytes = Bytes({1});
    EXPECT_THROW(bytes.GetAt(1), std::out_of_range);
    EXPECT_THROW(bytes.GetAt(-1), std::out_of_range);
    EXPECT_THROW(bytes.SetAt(1, 0), std::out_of_range);
    EXPECT_THROW(bytes.ElementAt(1), std::out_of_range);
    EXPECT_THROW(bytes.InsertAt(-1, 0), std::out_of_range);
    EXPECT_THROW(bytes.SetAtGrow(-1, 0), std::out_of_range);
    EXPECT_THROW(bytes.RemoveAt(0, 2), std::out_of_range);
    EXPECT_THROW(bytes.RemoveAt(1, INT_MAX), std::out_of_range);
    EXPECT_TRUE(bytes == Bytes({1}));
}

TEST(ArrayTest, ImpossibleSizesThrowAndChangeNothing)
{
    CByteArray bytes = Bytes({1, 2});
    EXPECT_THROW(bytes.SetSize(-1), CMemoryException);
    EXPECT_THROW(bytes.AppendRaw(bytes.GetData(), -1), CMemoryException);
    EXPECT_THROW(bytes.AppendRaw(bytes.GetData(), INT_MAX), CMemoryException);
    EXPECT_THROW(bytes.SetAtGrow(INT_MAX, 1), CMemoryException);
    EXPECT_TRUE(bytes == Bytes({1, 2}));
}

TEST(ListTest, RemovingMovesTheEntriesBehindOntoThePosition)
{
    CObject* const one = RUNTIME_CLASS(CByteArray)->CreateObject();
    CObject* const two = RUNTIME_CLASS(CByteArray)->CreateObject();
    CObList list;
    const POSITION first = list.AddTail(one);
    list.AddTail(two);
    list.AddTail(one);
    list.RemoveAt(first);
    EXPECT_EQ(list.GetAt(first), two);
    EXPECT_EQ(list.Find(one), list.FindIndex(1));
    EXPECT_EQ(list.Find(one, list.FindIndex(1)), nullptr);
    EXPECT_EQ(list.At(1), one);
    EXPECT_EQ(list.At(2), nullptr);
    EXPECT_EQ(list.At(-1), nullptr);
    CObList other;
    other.Swap(list);
    EXPECT_TRUE(list.IsEmpty());
    list.Assign({other.begin(), other.end()});
    EXPECT_EQ(list.GetCount(), 2);
    delete one;
    delete two;
}

TEST(ListTest, PositionsOutsideThrow)
{
    CObList list;
    EXPECT_EQ(list.GetHeadPosition(), nullptr);
    EXPECT_EQ(list.GetTailPosition(), nullptr);
    EXPECT_THROW(list.GetHead(), std::out_of_range);
    EXPECT_THROW(list.RemoveTail(), std::out_of_range);
    POSITION place = list.AddTail(nullptr);
    const POSITION stale = place;
    list.GetNext(place);
    EXPECT_EQ(place, nullptr);
    EXPECT_THROW(list.GetNext(place), std::out_of_range);
    list.RemoveAll();
    EXPECT_THROW(list.GetAt(stale), std::out_of_range);
    EXPECT_THROW(list.RemoveAt(stale), std::out_of_range);
}

TEST(MapTest, KeysCompareAsTheirTypeDoes)
{
    CByteArray value;
    CByteArray other;
    CMapStringToOb map;
    map.SetAt(CString("key\0x", 5), &value);
    CObject* found = nullptr;
    EXPECT_TRUE(map.Lookup("key", found));
    EXPECT_EQ(found, &value);
    EXPECT_FALSE(map.Lookup("Key", found));
    EXPECT_EQ(found, &value);
    map.SetAt("key", &other);
    EXPECT_EQ(map.GetCount(), 1);
    EXPECT_TRUE(map.Lookup("key", found) && found == &other);
    EXPECT_TRUE(map.RemoveKey("key"));
    EXPECT_FALSE(map.RemoveKey("key"));
    EXPECT_TRUE(map.IsEmpty());
}
