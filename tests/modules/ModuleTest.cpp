#include "Elements.h"
#include "StreamBytes.h"
#include "Varnotix/iod/DcmIOD.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmAttributeModule.h"
#include "Varnotix/modules/DcmModule.h"
#include "Varnotix/modules/DcmSequence.h"

#include <gtest/gtest.h>

/// The inner sequence of two levels.
class CInnerSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CInnerSequence)
    DCM_TEXT(InstanceUID, "0008", "1155")
    DCM_TEXT(ClassUID,    "0008", "1150")
    // clang-format on
};

class COuterSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(COuterSequence)
    DCM_INITIALIZE_SEQUENCE()
    DCM_TEXT(Label, "0008", "0104")
    DCM_SEQUENCE(Inner, CInnerSequence, "0008", "1140")
    // clang-format on
};

/// Rows of several kinds, declared in another order than their tags.
class CRowsModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CRowsModule)
    DCM_INITIALIZE_MODULE()
    DCM_TEXT            (Comments,     "0010", "4000")
    DCM_US              (Rows,         "0028", "0010")
    DCM_US_LIST         (Shutter,      "0018", "1624")
    DCM_BYTES           (Version,      "0002", "0001")
    DCM_TEXT            (NumericText,  "0028", "0011")
    DCM_US              (TextualWord,  "0010", "0020")
    DCM_SEQUENCE        (Outer, COuterSequence, "0008", "1120")
    // clang-format on

public:
    using CDcmModule::DestroyModule;
    void Declare() { InitializeModule(); }
};

IMPLEMENT_DCM_CLASS(CInnerSequence, CDcmSequence)
IMPLEMENT_DCM_INITIALIZED_CLASS(COuterSequence, CDcmSequence, InitializeSequence)
IMPLEMENT_DCM_INITIALIZED_CLASS(CRowsModule, CDcmModule, InitializeModule)

namespace
{

/// An item of the outer sequence in implicit little endian: the inner sequence with an instance UID, and a label.
CByteArray OuterStream(const char* uid, const char* label)
{
    CDcmIOD iod;
    iod.ElementStore().Add(
        MakeSequence(0x0008, 0x1120,
                     {MakeText(0x0008, 0x0104, label), MakeSequence(0x0008, 0x1140, {MakeText(0x0008, 0x1155, uid)})}));
    CByteArray bytes;
    iod.ExportFileFormat(bytes);
    return bytes;
}

/// A text of the inner sequence as the module's elements hold it.
std::string InnerText(const CDcmModule& module, int element)
{
    const CDcmElementSet& outer = *module.GetDcmElementSet().Find(0x0008, 0x1120)->Items();
    return TextOf(*outer.Find(0x0008, 0x1140)->Items(), 0x0008, element);
}

} // namespace

TEST(Rows, GiveReferencesIntoTheirElementAndIgnoreAValueOfAnotherKind)
{
    CRowsModule module;
    module.Comments() = "changed";
    module.Shutter().Add(4);
    EXPECT_EQ(TextOf(module.GetDcmElementSet(), 0x0010, 0x4000), "changed");
    EXPECT_EQ((*module.GetDcmElementSet().Find(0x0018, 0x1624)->Words())[0], 4);
    module.EmptyModule();
    module.NumericText("7");
    module.TextualWord(7);
    EXPECT_TRUE(module.NumericText().IsEmpty());
    EXPECT_TRUE(module.GetDcmElementSet().IsEmptyOfValues());

    // Without their elements they read empty values and ignore writes.
    module.DestroyModule();
    module.Comments("x");
    module.Rows(1);
    // A caller writes to the empty value against the contract; the next reader finds it empty all the same.
    module.Comments() = "spoilt";
    module.Version().Add(1);
    EXPECT_TRUE(module.Comments().IsEmpty());
    EXPECT_EQ(module.Rows(), 0);
    EXPECT_TRUE(module.Version().IsEmpty());
    EXPECT_EQ(module.GetCount(), 0);
    module.Declare();
    EXPECT_EQ(module.GetCountAll(), 11);
}

TEST(Binding, HoldsAfterAReadAndWhatIsSetThenIsWritten)
{
    CDcmIOD iod;
    CRowsModule module;
    COuterSequence& member = module.Outer();
    iod.Import(OuterStream("4.5.6", "before"));
    iod >> module;
    // A second read replaces what the first one left, through the same member objects.
    iod.Import(OuterStream("1.2.3", "second"));
    iod >> module;
    EXPECT_STREQ(member.Inner().InstanceUID(), "1.2.3");
    // The items that were read lack the class UID; it can be set all the same.
    EXPECT_TRUE(member.Inner().ClassUID().IsEmpty());
    member.Inner().ClassUID("9.9");
    member.Label("edited");
    iod << module;
    EXPECT_EQ(Show(iod.ElementStore()),
              "00081120 SQ {00080104 LO edited; 00081140 SQ {00081150 UI 9.9; 00081155 UI 1.2.3}}");
}

TEST(Binding, ShowsTheFirstOfSeveralItems)
{
    CDcmIOD iod;
    iod.ElementStore().Add(
        MakeSequence(0x0008, 0x1120, {MakeText(0x0008, 0x0104, "one"), MakeText(0x0008, 0x0104, "two")}));
    CRowsModule module;
    iod >> module;
    EXPECT_STREQ(module.Outer().Label(), "one");
    module.Outer().Label("three");
    EXPECT_EQ(Listing(module.Outer().GetDcmElementSet()),
              (std::vector<std::string>{"00080104=three", "00080104=two", "00081140="}));
}

TEST(Binding, ShowsItemsInTheirOwnOrderAndDeclaredElementsThatTheyLack)
{
    CDcmIOD iod;
    iod.ElementStore().Add(
        MakeSequence(0x0008, 0x1120, {MakeText(0x0020, 0x000D, "9.9"), MakeText(0x0008, 0x0100, "first tag")}));
    CRowsModule module;
    iod >> module;
    CRowsModule copy(module);
    module.Outer().Inner().ClassUID("1.2");
    EXPECT_EQ(InnerText(module, 0x1150), "1.2");
    module.Outer().Label("here");
    EXPECT_EQ(Listing(module.Outer().GetDcmElementSet()),
              (std::vector<std::string>{"0020000d=9.9", "00080100=first tag", "00080104=here", "00081140="}));
    EXPECT_FALSE(copy == module);
    EXPECT_EQ(InnerText(copy, 0x1150), "");
}

TEST(Binding, OfAnAbsentSequenceShowsTheMemberOfTheAssignedModule)
{
    CRowsModule source;
    source.Outer().Label("source");
    source.GetDcmElementSet().Remove(0x0008, 0x1120);
    CRowsModule target;
    target.Outer().Label("stale");
    target.Outer().Inner().ClassUID("9.9");
    target = source;
    EXPECT_STREQ(target.Outer().Label(), "source");
    EXPECT_TRUE(target.Outer().Inner().ClassUID().IsEmpty());
    // Within an item the sequence that is absent has no member to take values from.
    CDcmElementSet items;
    items.Add(MakeText(0x0008, 0x0104, "items"));
    CRowsModule nested;
    nested.Outer().Inner().ClassUID("9.9");
    nested.GetDcmElementSet().Find(0x0008, 0x1120)->SetItems(items);
    EXPECT_TRUE(nested.Outer().Inner().ClassUID().IsEmpty());
}

TEST(Binding, OutlivesTheReplacementOfAModulesElements)
{
    CRowsModule source;
    source.Outer().Inner().ClassUID("1.2");
    CDcmElementSet other;
    other.Add(MakeText(0x0010, 0x0010, "N"));
    CRowsModule removed(source);
    CRowsModule copied(source);
    CRowsModule merged(source);
    removed.GetDcmElementSet().RemoveAll();
    copied.GetDcmElementSet().CopyByValue(CRowsModule().GetDcmElementSet());
    EXPECT_TRUE(copied.Outer().Inner().ClassUID().IsEmpty());
    merged.GetDcmElementSet().Merge(other);
    EXPECT_EQ(InnerText(merged, 0x1150), "1.2");
    for (CRowsModule* module : {&removed, &copied, &merged})
    {
        source.Outer().Inner().ClassUID("3.4");
        *module = source;
        EXPECT_STREQ(module->Outer().Inner().ClassUID(), "3.4");
        module->Outer().Inner().ClassUID("5.6");
        EXPECT_EQ(InnerText(*module, 0x1150), "5.6");
        EXPECT_EQ(InnerText(source, 0x1150), "3.4");
    }
}

TEST(UnseenElements, AreThereForEveryOperation)
{
    CRowsModule unseen;
    unseen.Outer().Inner().ClassUID("1.2");
    EXPECT_FALSE(unseen == CRowsModule());
    CRowsModule copy(unseen);
    EXPECT_TRUE(copy == unseen);
    copy.EmptyModule();
    EXPECT_TRUE(copy == CRowsModule());

    CDcmIOD iod;
    iod << unseen;
    EXPECT_EQ(iod.GetCount(), 1);
    CRowsModule taken;
    taken.Outer().Label("goes");
    iod >> taken;
    CRowsModule seen;
    seen.Comments("goes too");
    seen = taken;
    for (CRowsModule* module : {&taken, &seen})
    {
        EXPECT_STREQ(module->Outer().Inner().ClassUID(), "1.2");
        EXPECT_TRUE(module->Outer().Label().IsEmpty());
        EXPECT_TRUE(module->Comments().IsEmpty());
        EXPECT_EQ(module->GetCountAll(), 11);
        EXPECT_TRUE(*module == taken);
    }
}

TEST(AttributeModule, GetsWhatWasSetByTag)
{
    CDcmAttributeModule item;
    ASSERT_TRUE(item.Insert("0010", "0020"));
    ASSERT_TRUE(item.SetValueField("0010", "0020", CString("7")));
    CDcmAttributeModule module;
    for (const char* element : {"1140", "0060"})
    {
        ASSERT_TRUE(module.Insert("0008", element));
    }
    ASSERT_TRUE(module.SetValueField("0008", "1140", item));

    // A value of another kind is refused, and nothing is touched.
    CByteArray bytes;
    CObList frames;
    frames.AddTail(&bytes);
    EXPECT_FALSE(module.SetValueField("0008", "0060", frames));
    EXPECT_FALSE(module.GetValueField("0008", "0060", frames));
    EXPECT_EQ(frames.GetCount(), 1);

    // A module may become its own item; the record still describes the sequence.
    CDmElement record;
    ASSERT_TRUE(module.GetValueField("0008", "1140", module, &record));
    EXPECT_TRUE(record.IsEqualGroupElement(0x0008, 0x1140));
    EXPECT_EQ(Listing(module.GetDcmElementSet()), (std::vector<std::string>{"00100020=7"}));
}
