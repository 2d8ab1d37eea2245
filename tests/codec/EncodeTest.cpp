#include "StreamBytes.h"

#include <gtest/gtest.h>

#include <tuple>

namespace
{

void AddText(CDcmElementSet& set, int group, int element, const char* text)
{
    set.Add(new CDcmElement(group, element));
    EXPECT_TRUE(set.GetAt(set.GetCount() - 1)->AddText(text));
}

std::string WrittenText(CDcmElementSet& set, int syntax, bool groupLengths = false)
{
    return HexText(Written(set, syntax, groupLengths));
}

} // namespace

TEST(Encode, OddTextsArePaddedByVr)
{
    const std::tuple<int, int, const char*, const char*> cases[] = {
        {0x0008, 0x0060, "CTX", "0800 6000 'CS' 0400 'CTX '"},
        {0x0040, 0xA160, "abc", "4000 60A1 'UT' 0000 04000000 'abc '"},
        {0x0008, 0x0016, "1.2.840.10008.1.1", "0800 1600 'UI' 1200 '1.2.840.10008.1.1' 00"},
        // Odd dates, times and ages stay odd.
        {0x0008, 0x0020, "2024061", "0800 2000 'DA' 0700 '2024061'"},
        {0x0008, 0x0030, "10151", "0800 3000 'TM' 0500 '10151'"},
        {0x0008, 0x002A, "2024061", "0800 2A00 'DT' 0700 '2024061'"},
        {0x0010, 0x1010, "42Y", "1000 1010 'AS' 0300 '42Y'"},
    };
    for (const auto& [group, element, text, written] : cases)
    {
        CDcmElementSet set;
        AddText(set, group, element, text);
        EXPECT_EQ(WrittenText(set, SYNTAX_EXPLICIT_LITTLE), HexText(Stream(written))) << written;
    }
    // Padding belongs to the bytes: the value keeps its length.
    SRead read(Stream("0800 6000 'CS' 0300 'CTX'"));
    EXPECT_EQ(WrittenText(read.set, SYNTAX_EXPLICIT_LITTLE), HexText(Stream("0800 6000 'CS' 0400 'CTX '")));
    EXPECT_EQ(read.set.GetAt(0)->EncodedSize(), 12u);
    EXPECT_EQ(read.set.GetAt(0)->JoinedText().GetLength(), 3);
}

TEST(Encode, EmptyTextsGoAndTheOthersAreJoined)
{
    SRead read(Stream("0800 0800 'CS' 0A00 'A\\\\B\\\\\\C\\ '")); // two values of one blank and none between
    EXPECT_EQ(Show(read.set), "00080008 CS A\\\\B\\\\\\C\\ ");
    EXPECT_EQ(WrittenText(read.set, SYNTAX_EXPLICIT_LITTLE), HexText(Stream("0800 0800 'CS' 0800 'A\\B\\C\\  '")));
    EXPECT_EQ(Show(read.set), "00080008 CS A\\B\\C\\ ");
    // A value of multiplicity one is never split.
    SRead single(Stream("0800 3010 'LO' 0400 'a\\\\b'"));
    EXPECT_EQ(WrittenText(single.set, SYNTAX_EXPLICIT_LITTLE), HexText(Stream("0800 3010 'LO' 0400 'a\\\\b'")));
}

TEST(Encode, LengthsOfTheShortFormAreCutTo16Bits)
{
    CDcmElementSet set;
    AddText(set, 0x0008, 0x1030, std::string(70000, 'x').c_str());
    const CByteArray little = Written(set, SYNTAX_EXPLICIT_LITTLE);
    EXPECT_EQ(little.GetSize(), 70008);
    EXPECT_EQ(HexText(little.GetData(), 10), HexText(Stream("0800 3010 'LO' 7011 'xx'"))); // 4464
    const CByteArray implicit = Written(set, SYNTAX_IMPLICIT_LITTLE);
    EXPECT_EQ(HexText(implicit.GetData(), 8), HexText(Stream("0800 3010 70110100")));
}

TEST(Encode, GroupLengthsAreRemovedAndMadeAnew)
{
    const CByteArray stream = Stream("0800 0000 'UL' 0400 99000000"   // wrong, and remade
                                     "0800 1600 'UI' 0400 '1.2' 00"   // 12 bytes
                                     "0800 6000 'CS' 0200 'MR'"       // 10 bytes
                                     "0900 1000 'LO' 0200 'PC'"       // 10 bytes
                                     "1000 0000 'UL' 0400 99000000"); // of a group that holds nothing else
    SRead off(stream);
    EXPECT_EQ(WrittenText(off.set, SYNTAX_EXPLICIT_LITTLE),
              HexText(Stream("0800 1600 'UI' 0400 '1.2' 00 0800 6000 'CS' 0200 'MR' 0900 1000 'LO' 0200 'PC'")));
    EXPECT_EQ(off.set.GetCount(), 3);
    SRead on(stream);
    EXPECT_EQ(WrittenText(on.set, SYNTAX_EXPLICIT_LITTLE, true),
              HexText(Stream("0800 0000 'UL' 0400 16000000" // 22 bytes
                             "0800 1600 'UI' 0400 '1.2' 00"
                             "0800 6000 'CS' 0200 'MR'"
                             "0900 0000 'UL' 0400 0A000000" // private groups have one too
                             "0900 1000 'LO' 0200 'PC'")));
    // A reader would take the stale one.
    SRead twice(Stream("0800 0000 'UL' 0400 01000000 0800 0000 'UL' 0400 02000000"));
    EXPECT_EQ(WrittenText(twice.set, SYNTAX_EXPLICIT_LITTLE), "");
    // The meta group is explicit little endian, and has one in any case.
    CDcmElementSet set;
    AddText(set, 0x0008, 0x0060, "MR");
    AddText(set, 0x0002, 0x0013, "V1");
    const std::string meta = HexText(Stream("0200 0000 'UL' 0400 0A000000 0200 1300 'SH' 0200 'V1'"));
    EXPECT_EQ(WrittenText(set, SYNTAX_EXPLICIT_BIG), meta + HexText(Stream("0008 0060 'CS' 0002 'MR'")));
    EXPECT_EQ(WrittenText(set, SYNTAX_IMPLICIT_LITTLE), meta + HexText(Stream("0800 6000 02000000 'MR'")));
    EXPECT_EQ(Show(set), "00020000 UL 10; 00020013 SH V1; 00080060 CS MR");
}

TEST(Encode, EachNestedElementIsAnItemOfItsOwn)
{
    CDcmElementSet set;
    set.Add(new CDcmElement(0x0008, 0x1140));
    CDcmElementSet& items = *set.GetAt(0)->Items();
    AddText(items, 0x0008, 0x1155, "1.2"); // out of order: items are sorted
    AddText(items, 0x0008, 0x0100, "AB");
    EXPECT_EQ(WrittenText(set, SYNTAX_EXPLICIT_LITTLE),
              HexText(Stream("0800 4011 'SQ' 0000 2E000000" // defined: 10 + 12 + 24
                             "FEFF 00E0 0A000000"           // item
                             "0800 0001 'SH' 0200 'AB'"     //
                             "FEFF 00E0 0C000000"           // item
                             "0800 5511 'UI' 0400 '1.2' 00" //
                             "FEFF DDE0 00000000")));       // and yet a sequence delimiter
    EXPECT_EQ(WrittenText(set, SYNTAX_EXPLICIT_BIG),
              HexText(Stream("0008 1140 'SQ' 0000 0000002E"
                             "FFFE E000 000A 0000" // item lengths have their halves in little endian order
                             "0008 0100 'SH' 0002 'AB'"
                             "FFFE E000 000C 0000"
                             "0008 1155 'UI' 0004 '1.2' 00"
                             "FFFE E0DD 0000 0000")));
    // An empty sequence has no delimiter.
    items.RemoveAll();
    EXPECT_EQ(WrittenText(set, SYNTAX_EXPLICIT_LITTLE), HexText(Stream("0800 4011 'SQ' 0000 00000000")));
    // Item lengths of more than 16 bits keep their halves in that order, too.
    AddText(items, 0x0040, 0xA160, std::string(0x12344, 'x').c_str());
    const CByteArray written = Written(set, SYNTAX_EXPLICIT_BIG);
    EXPECT_EQ(HexText(written.GetData(), 20), // the item holds 0x12344 + 12 bytes
              HexText(Stream("0008 1140 'SQ' 0000 00012360 FFFE E000 2350 0001")));
}

TEST(Encode, NestedSetsHaveTheirOwnGroupLengths)
{
    CDcmElementSet set;
    set.Add(new CDcmElement(0x0040, 0x0275));
    CDcmElementSet& outer = *set.GetAt(0)->Items();
    outer.Add(new CDcmElement(0x0040, 0x0008));
    AddText(*outer.GetAt(0)->Items(), 0x0008, 0x0100, "AB");
    EXPECT_EQ(WrittenText(set, SYNTAX_EXPLICIT_LITTLE, true),
              HexText(Stream("4000 0000 'UL' 0400 6A000000" // 106 bytes
                             "4000 7502 'SQ' 0000 5E000000" // 94: 8 + 12, 8 + 58, 8
                             "FEFF 00E0 0C000000"           //
                             "4000 0000 'UL' 0400 3A000000" // 58, with the inner group length
                             "FEFF 00E0 3A000000"           //
                             "4000 0800 'SQ' 0000 2E000000" // 46: 8 + 12, 8 + 10, 8
                             "FEFF 00E0 0C000000"           //
                             "0800 0000 'UL' 0400 0A000000" //
                             "FEFF 00E0 0A000000"           //
                             "0800 0001 'SH' 0200 'AB'"     //
                             "FEFF DDE0 00000000"           //
                             "FEFF DDE0 00000000")));
    WrittenText(set, SYNTAX_EXPLICIT_LITTLE);
    EXPECT_EQ(Show(set), "00400275 SQ {00400008 SQ {00080100 SH AB}}");
}

TEST(Encode, UnknownVrsTagsAndSyntaxesAreWrittenEmptyOrNotAtAll)
{
    // UN keeps its bytes for the reader but has no encoding.
    SRead read(Stream("7200 6D00 'UN' 0000 04000000 01020304"));
    EXPECT_EQ(Show(read.set), "0072006d UN 01020304");
    EXPECT_EQ(WrittenText(read.set, SYNTAX_EXPLICIT_LITTLE), HexText(Stream("7200 6D00 'UN' 0000 00000000")));
    // A tag that the dictionary lacks is skipped, whatever VR it was given.
    CDcmElementSet unknown;
    unknown.Add(new CDcmElement(0x0008, 0xFFF0, VR_LO));
    EXPECT_EQ(WrittenText(unknown, SYNTAX_EXPLICIT_LITTLE), "");
    // An unknown output syntax writes nothing and leaves the set as it is.
    SRead kept(Stream("0800 0000 'UL' 0400 01000000"));
    EXPECT_EQ(WrittenText(kept.set, SYNTAX_UNKNOWN), "");
    EXPECT_EQ(kept.set.GetCount(), 1);
}

TEST(Encode, OneElementWritesWhatItHeldWhenItWasEncoded)
{
    CDcmElement element(0x0008, 0x0060);
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    element.AddText("MR");
    element.Serialize(archive);
    element.SetSyntax(SYNTAX_EXPLICIT_BIG);
    element.Encode();
    element.Serialize(archive);
    // A number that is not a syntax has no layout for the header, whatever its low bits are.
    for (const int syntax : {0, -1, -128, 256 + SYNTAX_EXPLICIT_LITTLE})
    {
        element.SetSyntax(syntax);
        element.Encode();
        EXPECT_EQ(element.Syntax(), syntax);
        EXPECT_EQ(element.EncodedSize(), 10u);
        CByteArray header;
        CMemFile none;
        CArchive other(&none, CArchive::store);
        element.Serialize(other);
        other.Close();
        none.DetachTo(header);
        EXPECT_EQ(HexText(header), HexText(Stream("0000 0000 0000 0000 'MR'"))) << syntax;
    }
    archive.Close();
    CByteArray bytes;
    file.DetachTo(bytes);
    EXPECT_EQ(HexText(bytes), HexText(Stream("0008 0060 'CS' 0002 'MR'")));
}
