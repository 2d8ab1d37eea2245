#include "Elements.h"

#include <gtest/gtest.h>

#include <initializer_list>

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
    EXPECT_EQ(set.Find(0x0009, 0x1007), nullptr);
    set.Add(new CDcmElement(0x0009, 0x1FFF));
    EXPECT_EQ(set.Find(0x0009, 0x1FFF), set.GetAt(set.GetCount() - 1));
    set.Sort();
    EXPECT_EQ(set.Find(0x0009, 0x1001), set.GetAt(0));
    EXPECT_EQ(set.Find(0x0009, 0x1000), nullptr);
    set.RemoveAll();
    EXPECT_EQ(set.Find(0x0009, 0x1001), nullptr);
}

TEST(ElementSetSort, OrdersByGroupThenElementAndKeepsTheOrderOfEqualTags)
{
    CDcmElementSet set;
    Fill(set, {MakeText(0x0020, 0x000D, "1"), MakeText(0x0010, 0x0010, "B"), MakeText(0x0008, 0x0018, "2"),
               MakeText(0x0010, 0x0010, "A"), MakeText(0x0008, 0x0016, "3")});
    set.Sort();
    EXPECT_EQ(Listing(set), (Texts{"00080016=3", "00080018=2", "00100010=B", "00100010=A", "0020000d=1"}));
    // A few elements behind a sorted list are put in their places.
    Fill(set, {MakeText(0x0010, 0x0010, "C"), MakeText(0x0008, 0x0018, "4")});
    set.Sort();
    EXPECT_EQ(Listing(set), (Texts{"00080016=3", "00080018=2", "00080018=4", "00100010=B", "00100010=A", "00100010=C",
                                   "0020000d=1"}));
    // Groups beyond 7FFF stand behind the lower ones.
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
    set.Declare("0010", "0020"); // Already there, so nobody declares it.
    EXPECT_EQ(set.GetCount(), 3);
    set.Sort();
    CStringArray texts;
    set.DeclaredTags(texts);
    EXPECT_EQ(Lines(texts), (Texts{"0010", "0040", "0008", "103E"}));
    EXPECT_EQ(set.DeclaredTagTexts(), 4);
    ASSERT_NE(set.FindDeclared(0), nullptr);
    EXPECT_TRUE(set.FindDeclared(0)->HasTag(0x0010, 0x0040));
    EXPECT_TRUE(set.FindDeclared(2)->HasTag(0x0008, 0x103E));
    EXPECT_EQ(set.FindDeclared(-2), nullptr);
    EXPECT_EQ(set.FindDeclared(4), nullptr);
    set.Remove("0010", "0040");
    EXPECT_EQ(set.FindDeclared(0), nullptr);
    set.RemoveAll();
    EXPECT_EQ(set.DeclaredTagTexts(), 0);
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
    EXPECT_EQ(other.GetCount(), 3);
    set.RemoveTagsOf(set);
    EXPECT_TRUE(set.IsEmpty());
}

TEST(ElementSetSharing, IsSeenByBothUntilOneTakesAFreshBody)
{
    CDcmElementSet first;
    first.Add(MakeText(0x0010, 0x0010, "A"));
    CDcmElementSet second;
    second.Add(MakeText(0x0010, 0x0020, "gone"));
    second.CopyByReference(first);
    second.CopyByReference(first);
    EXPECT_TRUE(second.SharesBodyWith(first));
    EXPECT_TRUE(first == second);
    second.Add(MakeText(0x0010, 0x0020, "1"));
    EXPECT_EQ(first.GetCount(), 2);
    first.EmptyValue(0x0010, 0x0020);
    EXPECT_TRUE(second.GetAt(1)->IsEmptyValue());
    first.RemoveAll();
    EXPECT_TRUE(first.IsEmpty());
    EXPECT_EQ(second.GetCount(), 2);
    second.DestroyContents();
    EXPECT_TRUE(second.IsEmpty());
}

TEST(ElementSetCopy, ByValueIsDeepAndTakesTheDeclaredTags)
{
    CDcmElementSet source;
    source.Declare("0010", "0010");
    source.GetAt(0)->AddText("A");
    CDcmElementSet copy;
    copy.Add(MakeText(0x0010, 0x0020, "gone"));
    copy.CopyByValue(source);
    copy.CopyByValue(copy);
    EXPECT_EQ(Listing(copy), Texts{"00100010=A"});
    EXPECT_EQ(copy.FindDeclared(0), copy.GetAt(0));
    source.GetAt(0)->AddText("B");
    EXPECT_STREQ(copy.GetAt(0)->JoinedText(), "A");
}

TEST(ElementSetUpdate, GivesValuesToEveryElementOfATagAndAddsNone)
{
    CDcmElementSet target;
    Fill(target, {MakeText(0x0010, 0x0010, "A"), MakeText(0x0010, 0x0040, "M"), MakeText(0x0010, 0x0010, "B")});
    CDcmElementSet source;
    Fill(source,
         {MakeText(0x0010, 0x0010, "first"), MakeText(0x0010, 0x0010, "second"), MakeText(0x0010, 0x0020, "1")});
    target.UpdateValuesFrom(source);
    EXPECT_EQ(Listing(target), (Texts{"00100010=first", "00100040=M", "00100010=first"}));
    target.UpdateValuesFrom(CDcmElementSet());
    target.UpdateValuesFrom(target);
    EXPECT_EQ(target.GetCount(), 3);
}

TEST(ElementSetMerge, PutsNewTagsInFrontAndUpdatesTheOthers)
{
    CDcmElementSet target;
    Fill(target, {MakeText(0x0010, 0x0020, "1"), MakeText(0x0008, 0x0060, "CT")});
    CDcmElementSet source;
    Fill(source, {MakeText(0x0020, 0x0010, "S"), MakeText(0x0008, 0x0060, "MR"), MakeText(0x0010, 0x0010, "A"),
                  MakeText(0x0008, 0x0060, "NM")});
    target.Merge(source);
    EXPECT_EQ(Listing(target), (Texts{"00200010=S", "00100010=A", "00100020=1", "00080060=MR"}));
    EXPECT_EQ(source.GetCount(), 4);
    target.Merge(target);
    EXPECT_EQ(target.GetCount(), 4);
    EXPECT_EQ(target.Find(0x0010, 0x0020), target.GetAt(2));
}

TEST(ElementSetMerge, LeavesTheBodyThatOthersShare)
{
    CDcmElementSet target;
    target.Add(MakeText(0x0010, 0x0010, "A"));
    CDcmElementSet sharing;
    sharing.CopyByReference(target);
    CDcmElementSet source;
    Fill(source, {MakeText(0x0010, 0x0010, "B"), MakeText(0x0010, 0x0020, "1")});
    target.Merge(source);
    EXPECT_EQ(Listing(sharing), Texts{"00100010=A"});
    EXPECT_EQ(Listing(target), (Texts{"00100020=1", "00100010=B"}));
}

TEST(ElementSetEquality, IgnoresOrderButMatchesEachElementOnce)
{
    CDcmElementSet left;
    Fill(left, {MakeText(0x0010, 0x0010, "A"), MakeText(0x0010, 0x0010, "B"), MakeText(0x0010, 0x0010, "A"),
                MakeText(0x0008, 0x0060, "CT")});
    CDcmElementSet right;
    Fill(right, {MakeText(0x0008, 0x0060, "CT"), MakeText(0x0010, 0x0010, "B"), MakeText(0x0010, 0x0010, "A"),
                 MakeText(0x0010, 0x0010, "A")});
    EXPECT_TRUE(left == right);
    EXPECT_TRUE(right == left);
    EXPECT_EQ(left.GetAt(0)->Tag(), 0x00100010U); // Comparing sorts nothing.
    right.GetAt(3)->AddText("B");
    EXPECT_FALSE(left == right);
    EXPECT_FALSE(right == left);
    right.Remove(right.GetAt(3));
    EXPECT_FALSE(left == right);
    EXPECT_TRUE(CDcmElementSet() == CDcmElementSet());
    EXPECT_FALSE(CDcmElementSet() == left);
}

TEST(ElementSetItems, OfABoundSequenceKeepDeclaredElementsWhenTheyAreReplaced)
{
    CDcmElementSet member;
    member.Declare("0008", "1150");
    member.Declare("0008", "1155");
    CDcmElementSet set;
    set.BindSequence("0008", "1120", member);
    set.BindSequence("0010", "0010", member); // No sequence: added, not bound.
    EXPECT_TRUE(set.GetAt(0)->Items()->SharesBodyWith(member));
    EXPECT_EQ(set.GetAt(1)->Items(), nullptr);
    EXPECT_EQ(set.DeclaredTagTexts(), 0);

    CDcmElementSet items;
    Fill(items, {MakeText(0x0008, 0x1199, "x"), MakeText(0x0008, 0x1155, "1.2")});
    set.GetAt(0)->SetItems(items);
    EXPECT_EQ(Listing(member), (Texts{"00081150=", "00081155=1.2", "00081199="}));
    EXPECT_STREQ(member.FindDeclared(2)->JoinedText(), "1.2");
}
