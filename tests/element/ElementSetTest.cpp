#include "Elements.h"

#include <gtest/gtest.h>

namespace
{

using Texts = std::vector<std::string>;

} // namespace

TEST(ElementSet, FindsTheFirstOfATagInLargeUnsortedSetsWhileTheyChange)
{
    CDcmElementSet set;
    constexpr int kCount = 500;
    for (int i = kCount; i > 0; --i)
    {
        set.Add(new CDcmElement(0x0009, 0x1000 + i));
    }
    set.Add(new CDcmElement(0x0009, 0x1001));
    for (int i = 1; i <= kCount; ++i)
    {
        ASSERT_EQ(set.Find(0x0009, 0x1000 + i), set.GetAt(kCount - i));
    }
    // A second element of a tag does not hide the first, and takes its place once that one is gone.
    CDcmElement* second = new CDcmElement(0x0009, 0x1007);
    set.Add(second);
    EXPECT_NE(set.Find(0x0009, 0x1007), second);
    set.Remove(0x0009, 0x1007);
    EXPECT_EQ(set.Find(0x0009, 0x1007), second);
    set.Remove(second);
    set.Add(new CDcmElement(0x0009, 0x1FFF));
    EXPECT_EQ(set.Find(0x0009, 0x1FFF), set.GetAt(set.GetCount() - 1));
    set.Sort();
    // To remove once more what is gone already changes nothing, and its memory is not looked at.
    CDcmElement* gone = set.GetAt(0);
    set.Remove(gone);
    const int left = set.GetCount();
    set.Remove(gone);
    EXPECT_EQ(set.GetCount(), left);
    EXPECT_EQ(set.Find(0x0009, 0x1001), set.GetAt(0));
    EXPECT_EQ(set.Find(0x0009, 0x1000), nullptr);
    EXPECT_EQ(set.Find(0x0009, 0x1007), nullptr);
    set.RemoveAll();
    EXPECT_EQ(set.Find(0x0009, 0x1001), nullptr);
}

TEST(ElementSet, FindsAndEmptiesNothingForNumbersBeyond16Bits)
{
    CDcmElementSet set;
    set.Add(MakeText(0x0010, 0x0020, "1"));
    for (const auto& [group, element] : {std::pair(0x10010, 0x0020), {0x0010, 0x10020}, {0x0010, 0x0020 - 0x10000}})
    {
        EXPECT_EQ(set.Find(group, element), nullptr);
        set.EmptyValue(group, element);
        set.Remove(group, element);
    }
    EXPECT_EQ(Listing(set), (Texts{"00100020=1"}));
}

TEST(ElementSetSort, OrdersByGroupThenElementAndKeepsTheOrderOfEqualTags)
{
    CDcmElementSet set;
    Fill(set, {MakeText(0x0020, 0x000D, "1"), MakeText(0x0010, 0x0010, "B"), MakeText(0x0008, 0x0018, "2"),
               MakeText(0x0010, 0x0010, "A"), MakeText(0x0008, 0x0016, "3")});
    set.Sort();
    EXPECT_EQ(Listing(set), (Texts{"00080016=3", "00080018=2", "00100010=B", "00100010=A", "0020000d=1"}));
    // A few elements after a sorted list are put in their places.
    Fill(set, {MakeText(0x0010, 0x0010, "C"), MakeText(0x0008, 0x0018, "4")});
    set.Sort();
    EXPECT_EQ(Listing(set), (Texts{"00080016=3", "00080018=2", "00080018=4", "00100010=B", "00100010=A", "00100010=C",
                                   "0020000d=1"}));
    // Groups beyond 7FFF come after the lower ones.
    CDcmElementSet high;
    Fill(high, {new CDcmElement(0xFFFC, 0xFFFC), new CDcmElement(0x7FE0, 0x0010)});
    high.Sort();
    EXPECT_TRUE(high.GetAt(0)->IsPixelData());
}

TEST(ElementSetDeclare, NotesEachTagOnceInTheOrderOfDeclaration)
{
    CDcmElementSet set;
    set.Declare("0010", "0040");
    set.Declare("0008", "103e");
    set.Declare("0010", "0040");
    set.Add(MakeText(0x0010, 0x0020, "1"));
    set.Declare("0010", "0020"); // Already there, so it is not declared.
    EXPECT_EQ(set.GetCount(), 3);
    set.Sort();
    CStringArray texts;
    set.DeclaredTags(texts);
    EXPECT_EQ(Lines(texts), (Texts{"0010", "0040", "0008", "103E"}));
    EXPECT_EQ(set.DeclaredTagTexts(), 4);
    EXPECT_EQ(set.FindDeclared(0), set.Find(0x0010, 0x0040));
    EXPECT_EQ(set.FindDeclared(2), set.Find(0x0008, 0x103E));
    EXPECT_EQ(set.FindDeclared(-2), nullptr);
    EXPECT_EQ(set.FindDeclared(4), nullptr);
    // A tag that is not a sequence has no items to declare.
    CDcmElementSet noSequence;
    CDcmElementSet member;
    noSequence.BindSequence("0010", "0010", member);
    ASSERT_EQ(noSequence.GetCount(), 1);
    EXPECT_EQ(noSequence.GetAt(0)->Items(), nullptr);
    EXPECT_EQ(noSequence.DeclaredTagTexts(), 0);
}

TEST(ElementSetRemoveTags, RemovesOneElementForEachOfTheOther)
{
    CDcmElementSet set;
    Fill(set, {MakeText(0x0010, 0x0020, "1"), MakeText(0x0010, 0x0010, "A"), MakeText(0x0010, 0x0010, "B"),
               MakeText(0x0010, 0x0010, "C")});
    CDcmElementSet other;
    Fill(other, {MakeText(0x0010, 0x0010, ""), MakeText(0x0010, 0x0010, ""), MakeText(0x0010, 0x0030, "")});
    set.RemoveTagsOf(other);
    EXPECT_EQ(Listing(set), (Texts{"00100020=1", "00100010=C"}));
    CDcmElementSet sharing;
    sharing.CopyByReference(set);
    set.RemoveTagsOf(set);
    EXPECT_TRUE(set.IsEmpty());
    EXPECT_EQ(sharing.GetCount(), 2) << "the others keep the body, as with RemoveAll";
}

TEST(ElementSetSharing, IsSeenByBothUntilOneTakesAFreshBody)
{
    CDcmElementSet first;
    CDcmElementSet second;
    second.Add(MakeText(0x0010, 0x0020, "gone"));
    second.CopyByReference(first);
    second.CopyByReference(first);
    second.Add(MakeText(0x0010, 0x0020, "1"));
    EXPECT_EQ(Listing(first), Texts{"00100020=1"});
    first.RemoveAll();
    EXPECT_TRUE(first.IsEmpty());
    EXPECT_EQ(second.GetCount(), 1);
}

TEST(ElementSetMerge, PutsNewTagsInFrontOfABodyOfItsOwn)
{
    CDcmElementSet target;
    Fill(target, {MakeText(0x0010, 0x0020, "1"), MakeText(0x0008, 0x0060, "CT")});
    CDcmElementSet sharing;
    sharing.CopyByReference(target);
    CDcmElementSet source;
    Fill(source, {MakeText(0x0020, 0x0010, "S"), MakeText(0x0008, 0x0060, "MR"), MakeText(0x0010, 0x0010, "A"),
                  MakeText(0x0008, 0x0060, "NM")});
    target.Merge(source);
    target.Merge(target);
    EXPECT_EQ(Listing(target), (Texts{"00200010=S", "00100010=A", "00100020=1", "00080060=MR"}));
    EXPECT_EQ(Listing(sharing), (Texts{"00100020=1", "00080060=CT"}));
}

TEST(ElementSetMerge, MergesEachItemByItselfWhereBothSetsKeepItems)
{
    const auto fill = [](CDcmElementSet& set, std::initializer_list<std::initializer_list<CDcmElement*>> items)
    {
        set.SetKeepsItems(true);
        for (const auto& elements : items)
        {
            set.BeginItem();
            Fill(set, elements);
        }
        set.SelectItem(0);
    };
    CDcmElementSet target;
    fill(target, {{MakeText(0x0008, 0x0100, "a"), MakeText(0x0008, 0x0104, "A")}, {MakeText(0x0008, 0x0104, "B")}});
    CDcmElementSet source;
    fill(source, {{MakeText(0x0008, 0x0104, "new")}, {MakeText(0x0008, 0x0100, "b")}, {MakeText(0x0008, 0x0100, "c")}});
    target.Merge(source);
    EXPECT_EQ(Listing(target), (Texts{"00080100=a", "00080104=new", "00080100=b", "00080104=B", "00080100=c"}));
    EXPECT_EQ(target.ItemCount(), 3);
    const CDcmElement* second = target.FindInItem(2, 0x0008, 0x0100);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->JoinedText(), "b");
}

TEST(ElementSetEquality, IgnoresOrderButMatchesEachElementOnce)
{
    const auto equal = [](const char* left, const char* right)
    {
        CDcmElementSet sets[2];
        for (const char* name : {left, right})
        {
            for (const char* letter = name; *letter != '\0'; ++letter)
            {
                sets[name == right ? 1 : 0].Add(MakeText(0x0010, 0x0010, CString(*letter, 1)));
            }
        }
        return sets[0] == sets[1];
    };
    EXPECT_TRUE(equal("ABA", "BAA"));
    EXPECT_FALSE(equal("ABA", "BAB"));
    EXPECT_FALSE(equal("BAB", "ABA"));
    EXPECT_FALSE(equal("ABA", "BA"));
}
