#include "Varnotix/platform/Arrays.h"
#include "Varnotix/platform/Lists.h"
#include "Varnotix/platform/Maps.h"

#include <gtest/gtest.h>

#include <new>
#include <set>

namespace
{
CByteArray Bytes(std::initializer_list<BYTE> values)
{
    CByteArray array;
    array.Assign(std::data(values), static_cast<int>(values.size()));
    return array;
}

/// Can be copied only so often; every copy behind that fails as an allocation does.
struct Rationed
{
    static inline int copiesLeft = 0;

    Rationed() = default;
    Rationed(Rationed&&) noexcept = default;
    Rationed& operator=(Rationed&&) noexcept = default;
    Rationed& operator=(const Rationed&) = default;
    ~Rationed() = default;
    Rationed(const Rationed&)
    {
        if (copiesLeft-- <= 0)
        {
            throw std::bad_alloc();
        }
    }
};
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

TEST(ArrayTest, InsertsAndRemovesInTheMiddle)
{
    CByteArray bytes = Bytes({1, 2, 3});
    bytes.InsertAt(1, bytes[2], 2);
    EXPECT_TRUE(bytes == Bytes({1, 3, 3, 2, 3}));
    bytes.RemoveAt(1, 3);
    EXPECT_TRUE(bytes == Bytes({1, 3}));
    EXPECT_EQ(bytes.Add(5), 2);
    EXPECT_EQ(bytes.GetUpperBound(), 2);
    bytes.RemoveAll();
    EXPECT_TRUE(bytes.IsEmpty());
    EXPECT_EQ(bytes.GetUpperBound(), -1);
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

TEST(ArrayTest, MemoryThatRanOutThrowsAndChangesNothing)
{
    CArray<Rationed> array;
    array.SetSize(2);
    Rationed::copiesLeft = 0;
    EXPECT_THROW(array.Add(array[0]), CMemoryException);
    EXPECT_THROW(array.InsertAt(0, array[0], 3), CMemoryException);
    EXPECT_THROW(array.AppendRaw(array.GetData(), 2), CMemoryException);
    EXPECT_THROW(CArray<Rationed> copy(array), CMemoryException);
    EXPECT_EQ(array.GetSize(), 2);
}

TEST(ArrayTest, CopiesAreIndependentAndMovesTakeTheMemory)
{
    CStringArray first;
    first.Add("a");
    CStringArray second = first;
    second.SetAt(0, "b");
    EXPECT_STREQ(first[0], "a");
    EXPECT_FALSE(first == second);
    const CString* place = second.GetData();
    const CStringArray third = std::move(second);
    EXPECT_EQ(third.GetData(), place);
    first = third;
    EXPECT_TRUE(first == third);
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<CByteArray>);
}

TEST(ArrayTest, AnObjectTellsWhichArrayItIs)
{
    const CWordArray words;
    const CObject& object = words;
    EXPECT_TRUE(object.IsKindOf(RUNTIME_CLASS(CWordArray)));
    EXPECT_FALSE(object.IsKindOf(RUNTIME_CLASS(CByteArray)));
}

TEST(ListTest, WalksInOrderBothWays)
{
    CStringList list;
    list.AddTail("b");
    list.AddHead("a");
    list.InsertAfter(list.FindIndex(1), "d");
    list.InsertBefore(list.Find("d"), "c");
    CString forward;
    for (POSITION place = list.GetHeadPosition(); place != nullptr;)
    {
        forward += list.GetNext(place);
    }
    EXPECT_EQ(forward, "abcd");
    CString backward;
    for (POSITION place = list.GetTailPosition(); place != nullptr;)
    {
        backward += list.GetPrev(place);
    }
    EXPECT_EQ(backward, "dcba");
    EXPECT_EQ(list.RemoveHead(), "a");
    EXPECT_EQ(list.RemoveTail(), "d");
    EXPECT_EQ(list.GetHead(), "b");
    EXPECT_EQ(list.GetTail(), "c");
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

TEST(MapTest, AWalkMeetsEveryEntryOnceAndMayRemoveWhatItMet)
{
    CByteArray value;
    CMapWordToOb map;
    map.InitHashTable(1000);
    for (int key = 0; key < 1000; ++key)
    {
        map.SetAt(static_cast<WORD>(key * 60), &value);
    }
    std::set<WORD> met;
    for (POSITION place = map.GetStartPosition(); place != nullptr;)
    {
        WORD key = 0;
        CObject* object = nullptr;
        map.GetNextAssoc(place, key, object);
        EXPECT_EQ(object, &value);
        met.insert(key);
        map.RemoveKey(key);
    }
    EXPECT_EQ(met.size(), 1000u);
    EXPECT_EQ(map.GetStartPosition(), nullptr);
    POSITION nowhere = nullptr;
    WORD key = 0;
    CObject* object = nullptr;
    EXPECT_THROW(map.GetNextAssoc(nowhere, key, object), std::out_of_range);
}
