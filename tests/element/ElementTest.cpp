#include "Elements.h"
#include "Varnotix/element/DcmFrameList.h"
#include "Varnotix/registry/DcmRegistry.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

/// An element of a VM that no public tag has.
CDcmElement OfVm(int element, const char* vr, int vm)
{
    CDcmRegistry::Global().AddSharedPrivateEntry(0x0019, element, vr, vm);
    return CDcmElement(0x0019, element);
}

} // namespace

TEST(Element, OfAnUnknownTagKeepsRawBytesOnly)
{
    CDcmElement unknown(0x0008, 0x7771, Bytes({'A', 'B'}));
    EXPECT_EQ(unknown.Vr(), static_cast<int>(VR_UNKNOWN));
    EXPECT_EQ(unknown.RawBytes().Size(), 2U);
    EXPECT_FALSE(unknown.AddText("A"));
    EXPECT_FALSE(unknown.IsEmptyValue());
    // A forced VR does not make up for the missing entry.
    EXPECT_FALSE(CDcmElement(0x0008, 0x7771, VR_LO).AddText("A"));
    // Nor does a number become the VR that its low byte would be.
    EXPECT_EQ(CDcmElement(0x0010, 0x0010, 256 + VR_OB).Vr(), static_cast<int>(VR_UNKNOWN));
}

TEST(SingleValueSetters, LetOneValueMoreGatherThanTheMultiplicityAllows)
{
    CDcmElement spacing(0x0028, 0x0030);
    CDcmElement fills(0x0018, 0x9066);
    CDcmElement items(0x0008, 0x030B);
    CDcmElement cursor(0x0018, 0x2043);
    CDcmElement range(0x0008, 0x1163);
    for (int i = 0; i < 5; ++i)
    {
        const bool taken[] = {spacing.AddText("1"), fills.AddWord(1), items.AddInteger(1), cursor.AddFloat(1),
                              range.AddDouble(1)};
        EXPECT_EQ(std::count(std::begin(taken), std::end(taken), i < 3), 5) << i;
    }
    EXPECT_EQ(spacing.JoinedText(), "1\\1\\1");
    EXPECT_EQ(fills.Words()->GetSize(), 3);
}

TEST(SingleValueSetters, TakeNothingUnderAMultiplicityOfZeroButOneWord)
{
    EXPECT_FALSE(OfVm(0x1001, "LO", 0).AddText("A"));
    EXPECT_FALSE(OfVm(0x1002, "UL", 0).AddInteger(1));
    EXPECT_FALSE(OfVm(0x1003, "FD", 0).AddDouble(1));
    CDcmElement word = OfVm(0x1004, "US", 0);
    EXPECT_TRUE(word.AddWord(1));
    EXPECT_FALSE(word.AddWord(2));
    EXPECT_EQ((*word.Words())[0], 1);
}

TEST(SingleValueSetters, ClearByAnEmptyTextWhereThereIsOneValueOnly)
{
    CDcmElement name(0x0010, 0x0010);
    EXPECT_TRUE(name.AddText("A name that does not lie in the text itself"));
    EXPECT_TRUE(name.AddText((*name.Texts())[0]));
    EXPECT_STREQ(name.JoinedText(), "A name that does not lie in the text itself");
    EXPECT_TRUE(name.AddText(""));
    EXPECT_TRUE(name.Texts()->IsEmpty());
    CDcmElement type(0x0008, 0x0008);
    type.AddText("ORIGINAL");
    type.AddText("");
    EXPECT_STREQ(type.JoinedText(), "ORIGINAL");
}

TEST(SingleValueSetters, TakeNothingUnderAMultiplicityBelowMinusOne)
{
    CDcmElement text = OfVm(0x1005, "LO", -2);
    CDcmElement word = OfVm(0x1006, "US", -2);
    EXPECT_FALSE(text.AddText("A"));
    EXPECT_FALSE(word.AddWord(1));
    EXPECT_TRUE(text.Texts()->IsEmpty());
    EXPECT_TRUE(word.Words()->IsEmpty());
}

TEST(Setters, RefuseWhatTheVrDoesNotHold)
{
    CDcmElement text(0x0010, 0x0010);
    text.AddText("DOE");
    EXPECT_FALSE(text.AddWord(1));
    EXPECT_FALSE(text.SetBytes(Bytes({1})));
    EXPECT_FALSE(text.SetItems(CDcmElementSet()));
    EXPECT_STREQ(text.JoinedText(), "DOE");
    CDcmElement number(0x0018, 0x9079); // FD
    EXPECT_FALSE(number.AddText("1"));
    EXPECT_FALSE(number.AddFloat(1));
    EXPECT_FALSE(CDcmElement(0x0018, 0x1638).AddFloat(1));          // OF takes whole arrays only.
    EXPECT_FALSE(CDcmElement(0x0072, 0x006D).SetBytes(Bytes({1}))); // UN
}

TEST(Setters, PutAnIntegerIntoEachVrThatHoldsIntegers)
{
    CDcmElement word(0x0028, 0x0010);
    EXPECT_TRUE(word.AddInteger(0x12345678));
    EXPECT_EQ((*word.Words())[0], 0x5678);
    CDcmElement longValue(0x0018, 0x6020); // SL
    EXPECT_TRUE(longValue.AddInteger(0xFFFFFFFFU));
    EXPECT_EQ((*longValue.Integers())[0], 0xFFFFFFFFU);
    CDcmElement bytes(0x0002, 0x0001);
    EXPECT_TRUE(bytes.AddInteger(0x12345678));
    EXPECT_EQ(HexText(*bytes.Bytes()), "78563412");
}

TEST(Setters, TakeAnElementsOwnValue)
{
    CDcmElement type(0x0008, 0x0008);
    type.AddText("A");
    type.AddText("B");
    EXPECT_TRUE(type.SetTexts(*type.Texts()));
    EXPECT_STREQ(type.JoinedText(), "A\\B");
    EXPECT_FALSE(type.SetTexts(CStringArray()));
    EXPECT_TRUE(type.IsEmptyValue());
    CDcmElement sequence(0x0008, 0x1120);
    sequence.Items()->Add(MakeText(0x0008, 0x1150, "1.2"));
    EXPECT_TRUE(sequence.SetItems(*sequence.Items()));
    EXPECT_EQ(sequence.Items()->GetCount(), 1);
}

TEST(Assignment, TakesRawBytesFlagAndValueButNeverTheTag)
{
    CDcmElement source(0x0010, 0x0010, TextBytes("DOE^JOHN"));
    source.SetRead();
    CDcmElement target(0x0010, 0x1001); // PN without bound on values.
    target = source;
    EXPECT_TRUE(target.HasTag(0x0010, 0x1001));
    EXPECT_TRUE(target.IsRead());
    EXPECT_STREQ(target.JoinedText(), "DOE^JOHN");
    EXPECT_EQ(target.RawBytes().Text(), "DOE^JOHN");

    // The value that the source holds counts, not the bytes from which it was made.
    CDcmElement whole(0x0010, 0x0010, TextBytes("A\\B"));
    target = whole;
    EXPECT_EQ(target.Texts()->GetSize(), 1);
    whole.AddText("C");
    target = whole;
    EXPECT_STREQ(target.JoinedText(), "C");
    EXPECT_EQ(target.RawBytes().Text(), "A\\B");
    const CDcmElement& same = target;
    target = same;
    EXPECT_STREQ(target.JoinedText(), "C");
}

TEST(Assignment, BetweenDifferentVrsTakesRawBytesOnly)
{
    CDcmElement single(0x0018, 0x9079, VR_FL);
    single.SetRawBytes(Bytes({0, 0, 0x80, 0x3F}));
    // A value that is still in the target's raw bytes stays too, although those bytes go.
    CDcmElement unread(0x0018, 0x9079, Bytes({0, 0, 0, 0, 0, 0, 0x1C, 0x40}));
    CDcmElement built(0x0018, 0x9079);
    built.AddDouble(7);
    for (CDcmElement* target : {&built, &unread})
    {
        *target = single;
        EXPECT_TRUE(target->HasVr(VR_FD));
        ASSERT_EQ(target->Doubles()->GetSize(), 1);
        EXPECT_EQ((*target->Doubles())[0], 7);
        EXPECT_EQ(target->RawBytes().Size(), 4U);
    }
}

TEST(Assignment, OfPixelDataTakesVrAndFrames)
{
    CDcmElement words(0x7FE0, 0x0010, VR_OW);
    words.Frames()->AddFrame(Bytes({1, 2, 3, 4}));
    words.Frames()->SetOffsetTable(Bytes({0, 0, 0, 0}));
    for (const int vr : {VR_OB, VR_OW, VR_UN, VR_US})
    {
        CDcmElement target(0x7FE0, 0x0010, vr);
        target.SetBytes(Bytes({9}));
        target = words;
        EXPECT_TRUE(target.HasVr(VR_OW)) << vr;
        EXPECT_STREQ(target.VrName(), "OW");
        EXPECT_TRUE(target == words);
        EXPECT_EQ(target.Frames()->OffsetTable().GetSize(), 4);
    }
}

TEST(Assignment, OfASequenceCopiesItemsOfTheSameTagOnly)
{
    const std::unique_ptr<CDcmElement> source(MakeSequence(0x0008, 0x1120, {MakeText(0x0008, 0x1150, "1.2")}));
    CDcmElement same(0x0008, 0x1120);
    same.Items()->Add(MakeText(0x0008, 0x1155, "9"));
    same = *source;
    EXPECT_EQ(Listing(*same.Items()), Listing(*source->Items()));
    same.Items()->GetAt(0)->AddText("3.4");
    EXPECT_STREQ(source->Items()->GetAt(0)->JoinedText(), "1.2");
    CDcmElement other(0x0008, 0x1140);
    other = *source;
    EXPECT_EQ(other.Items()->GetCount(), 0);
}

TEST(Equality, ComparesTagVrAndTypedValueOnly)
{
    CDcmElement read(0x0010, 0x0010, TextBytes("DOE"));
    read.SetRead();
    CDcmElement set(0x0010, 0x0010);
    set.AddText("DOE");
    EXPECT_TRUE(read == set);
    set.AddText("doe");
    EXPECT_FALSE(read == set);
    EXPECT_FALSE(CDcmElement(0x0010, 0x0010) == CDcmElement(0x0010, 0x0010, VR_LO));
    EXPECT_TRUE(CDcmElement(0x0028, 0x0010, Bytes({1, 0, 9})) == CDcmElement(0x0028, 0x0010, Bytes({1, 0})));
    // The padding byte of a UID is not a part of it.
    EXPECT_TRUE(CDcmElement(0x0008, 0x0018, TextBytes({"1.2\0", 4})) == CDcmElement(0x0008, 0x0018, TextBytes("1.2")));
    // Bytes handed to OW count, also beside words that were not accessed.
    CDcmElement words(0x0028, 0x3006, Bytes({1, 2}));
    EXPECT_TRUE(words == CDcmElement(words));
    words.SetBytes(Bytes({9}));
    EXPECT_FALSE(words == CDcmElement(0x0028, 0x3006, Bytes({1, 2})));
    // Both hold nothing, one because it was emptied.
    read.EmptyValue();
    EXPECT_TRUE(read == CDcmElement(0x0010, 0x0010));
    // What is not a number equals only itself.
    const CDcmElement notANumber(0x0018, 0x9079, Bytes({0, 0, 0, 0, 0, 0, 0xF8, 0x7F}));
    EXPECT_FALSE(notANumber == CDcmElement(notANumber));
    EXPECT_TRUE(notANumber == notANumber);
}
