#include "StreamBytes.h"
#include "Varnotix/registry/DcmRegistry.h"

#include <gtest/gtest.h>

#include <tuple>

namespace
{

// A value of every kind whose bytes depend on the byte order, and two whose bytes do not.
constexpr const char* kValues = "00080060 CS MR; 00101010 AS 042Y; 00189091 FD 1.5; 00189473 FL -2; 00280002 US 3; "
                                "00280009 AT 24 4195; 00281201 OW 258 772; 0040a160 UT text; 0048021e SL 65538; "
                                "00640009 OF 0.5 -2; 00660129 OB 010203";

const CByteArray& Little()
{
    static const CByteArray bytes = Stream("0800 6000 'CS' 0200 'MR'"               // (0008,0060) CS, short form
                                           "1000 1010 'AS' 0400 '042Y'"             // (0010,1010) AS
                                           "1800 9190 'FD' 0800 000000000000F83F"   // (0018,9091) FD 1.5
                                           "1800 7394 'FL' 0400 000000C0"           // (0018,9473) FL -2
                                           "2800 0200 'US' 0200 0300"               // (0028,0002) US 3
                                           "2800 0900 'AT' 0400 1800 6310"          // (0028,0009) AT (0018,1063)
                                           "2800 0112 'OW' 0000 04000000 0201 0403" // (0028,1201) OW, long form
                                           "4000 60A1 'UT' 0000 04000000 'text'"    // (0040,A160) UT, long form
                                           "4800 1E02 'SL' 0400 02000100"           // (0048,021E) SL 65538
                                           "6400 0900 'OF' 0000 08000000 0000003F 000000C0" // (0064,0009) OF 0.5 -2
                                           "6600 2901 'OB' 0000 03000000 010203");          // (0066,0129) OB, odd
    return bytes;
}

const CByteArray& Big()
{
    static const CByteArray bytes = Stream("0008 0060 'CS' 0002 'MR'"               // text: header swapped, value not
                                           "0010 1010 'AS' 0004 '042Y'"             //
                                           "0018 9091 'FD' 0008 3FF8000000000000"   // eight bytes reversed
                                           "0018 9473 'FL' 0004 C0000000"           // four bytes reversed
                                           "0028 0002 'US' 0002 0003"               // two bytes swapped
                                           "0028 0009 'AT' 0004 0018 1063"          // two and two, not four
                                           "0028 1201 'OW' 0000 00000004 0102 0304" // length reversed, words swapped
                                           "0040 A160 'UT' 0000 00000004 'text'"    //
                                           "0048 021E 'SL' 0004 00010002"           // four bytes reversed
                                           "0064 0009 'OF' 0000 00000008 3F000000 C0000000" // four and four
                                           "0066 0129 'OB' 0000 00000003 010203");          // bytes stay
    return bytes;
}

const CByteArray& Implicit()
{
    static const CByteArray bytes = Stream("0800 6000 02000000 'MR'" // tag, 32-bit length, no VR
                                           "1000 1010 04000000 '042Y'"
                                           "1800 9190 08000000 000000000000F83F"
                                           "1800 7394 04000000 000000C0"
                                           "2800 0200 02000000 0300"
                                           "2800 0900 04000000 1800 6310"
                                           "2800 0112 04000000 0201 0403"
                                           "4000 60A1 04000000 'text'"
                                           "4800 1E02 04000000 02000100"
                                           "6400 0900 08000000 0000003F 000000C0"
                                           "6600 2901 03000000 010203");
    return bytes;
}

/// Kind and count of a read's only note.
std::pair<int, UINT> NoteOf(const SRead& read)
{
    const auto& notes = read.parser.Notes();
    return notes.size() == 1 ? std::pair<int, UINT>(notes[0].note, notes[0].count) : std::pair<int, UINT>(-1, 0U);
}

/// Meta information in explicit VR little endian that begins with its group length and names a syntax.
CByteArray Meta(const char* syntaxUid)
{
    CByteArray uid = TextBytes(syntaxUid);
    uid.SetSize(uid.GetSize() + uid.GetSize() % 2);
    return Stream("0200 0000 'UL' 0400") + Bytes({uid.GetSize() + 8, 0, 0, 0}) + Stream("0200 1000 'UI'") +
           Bytes({uid.GetSize(), 0}) + uid;
}

} // namespace

TEST(Decode, FindsTheSyntaxByTrialAndWritesItBackAsItWasRead)
{
    for (const auto& [stream, syntax, trials] :
         {std::tuple(Big(), SYNTAX_EXPLICIT_BIG, ""), std::tuple(Little(), SYNTAX_EXPLICIT_LITTLE, "4:2@6"),
          std::tuple(Implicit(), SYNTAX_IMPLICIT_LITTLE, "4:2@6 2:1@6")})
    {
        SRead read(stream);
        EXPECT_EQ(read.parser.OutputSyntax(), syntax);
        EXPECT_EQ(read.Trials(), trials);
        EXPECT_EQ(HexText(Written(read.set, syntax)), HexText(stream));
        // The same bytes come from values that were built, as from those that stayed as they were read.
        EXPECT_EQ(Show(read.set), kValues);
        EXPECT_EQ(HexText(Written(read.set, syntax)), HexText(stream));
        EXPECT_EQ(HexText(Written(read.set, SYNTAX_EXPLICIT_BIG)), HexText(Big()));
    }
}

TEST(Decode, ElementsBeginAfterThePrefixWhereverItIs)
{
    const CByteArray element = Stream("0800 6000 'CS' 0200 'MR'");
    for (const auto& [start, trials] : {std::pair(Repeated(0x20, 128) + TextBytes("DICM"), "4:2@138"),
                                        {Repeated(0x20, 128) + TextBytes("DiCm"), "4:2@138"},
                                        {TextBytes("DICM"), "4:2@10"},
                                        {CByteArray(), "4:2@6"}})
    {
        const SRead read(start + element);
        EXPECT_EQ(Show(read.set), "00080060 CS MR");
        EXPECT_EQ(read.Trials(), trials);
    }
    // Preamble and prefix are kept although there is no prefix; a short stream gives what it has.
    const SRead none(element);
    CByteArray bytes;
    none.parser.Preamble(bytes);
    EXPECT_EQ(HexText(bytes), HexText(element));
    none.parser.Magic(bytes);
    EXPECT_EQ(HexText(bytes), "08006000");
}

TEST(Decode, SyntaxOfTheMetaGroupTakesOverAtItsEnd)
{
    const auto behindMeta = [](const char* uid, const CByteArray& data)
    {
        SRead read(Part10(Meta(uid) + data));
        EXPECT_EQ(read.Trials(), "4:2@138") << uid;
        read.set.Remove(0x0002, 0x0000);
        read.set.Remove(0x0002, 0x0010);
        return std::tuple(Show(read.set), read.parser.OutputSyntax());
    };
    const std::string values = kValues;
    EXPECT_EQ(behindMeta("1.2.840.10008.1.2", Implicit()), std::tuple(values, 1));
    EXPECT_EQ(behindMeta("1.2.840.10008.1.2.2", Big()), std::tuple(values, 4));
    EXPECT_EQ(behindMeta("1.2.840.10008.1.2.5", Little()), std::tuple(values, 2)) << "run length encoded";
    EXPECT_EQ(behindMeta("1.2.3", Little()), std::tuple(values, 2)) << "unknown: the meta group's own";
}

TEST(Decode, OnlyMetaInformationThatBeginsWithItsLengthSwitches)
{
    const CByteArray bigUid = Stream("0200 1000 'UI' 1400 '1.2.840.10008.1.2.2' 00");
    const CByteArray littleUid = Stream("0200 1000 'UI' 1400 '1.2.840.10008.1.2.1' 00");
    const CByteArray unknownUid = Stream("0200 1000 'UI' 0400 '1.2' 00");
    const CByteArray version = Stream("0200 0100 'OB' 0000 02000000 0001");
    const auto length = [](int bytes) { return Stream("0200 0000 'UL' 0400") + Bytes({bytes, 0, 0, 0}); };
    const struct
    {
        const char* reason;
        CByteArray meta;
        int elements;
        int syntax;
    } cases[] = {
        {"the first element ends the group unless it is the length", version + bigUid, 2, SYNTAX_EXPLICIT_LITTLE},
        {"a length that comes later ends nothing", version + length(28) + bigUid, 3, SYNTAX_EXPLICIT_LITTLE},
        {"the first known UID counts", length(12 + 28 + 28) + unknownUid + bigUid + littleUid, 4, SYNTAX_EXPLICIT_BIG},
        {"a length that ends inside an element switches after it", length(1) + bigUid, 2, SYNTAX_EXPLICIT_BIG},
        {"a length of zero ends the group before a syntax is known", length(0) + bigUid, 2, SYNTAX_EXPLICIT_LITTLE}};
    for (const auto& each : cases)
    {
        const SRead read(Part10(each.meta + (each.syntax == SYNTAX_EXPLICIT_BIG ? Big() : Little())));
        EXPECT_EQ(read.parser.OutputSyntax(), each.syntax) << each.reason;
        EXPECT_EQ(read.set.GetCount(), each.elements + 11) << each.reason;
    }
}

TEST(Decode, ValuesTakeTheirVrFromTheDictionary)
{
    // The stream's VR chooses only header form and swapping.
    const SRead little(Stream("0800 6000 'UN' 0000 02000000 'MR'" // CS written as UN
                              "2800 0200 'SS' 0200 0300"          // US written as SS
                              "2800 0601 'ss' 0200 FFFF"));       // usss; the letters' case does not count
    EXPECT_EQ(Show(little.set), "00080060 CS MR; 00280002 US 3; 00280106 US 65535");
    const SRead big(Stream("0028 0002 'UN' 0000 00000002 0003" // not swapped: UN
                           "0028 0003 'OB' 0000 00000002 0003" // not swapped: OB
                           "0028 0008 'US' 0002 '21'"));       // IS, but swapped as US
    EXPECT_EQ(Show(big.set), "00280002 US 768; 00280003 US 768; 00280008 IS 12");
}

TEST(Decode, LearnsPrivateTagsAndKeepsThemAfterASuccessfulRead)
{
    CDcmRegistry& registry = CDcmRegistry::Global();
    // A failed read learns nothing: the unknown even tag (0008,FFF0) ends it.
    const CByteArray learned = Stream("0B00 1010 'LO' 0400 'priv'");
    EXPECT_EQ(Show(SRead(learned + Stream("0800 F0FF 'LO' 0000")).set), "");
    EXPECT_EQ(registry.LookUpTag(0x000B, 0x1010), nullptr);

    const SRead read(learned + Stream("0B00 1110 'SQ' 0000 00000000 0B00 1210 'US' 0200 0700"));
    EXPECT_EQ(Show(read.set), "000b1010 LO priv; 000b1011 SQ {000b1012 US 7}");
    ASSERT_NE(registry.LookUpTag(0x000B, 0x1010), nullptr);
    EXPECT_EQ(registry.LookUpTag(0x000B, 0x1010)->name, "Private Data Element");

    // Without a VR in the stream a tag never met before holds bytes; one that was learned keeps its VR.
    const SRead implicit(Stream("0B00 1010 04000000 'priv' 0B00 1210 02000000 0800 0B00 1310 02000000 0800"));
    EXPECT_EQ(Show(implicit.set), "000b1010 LO priv; 000b1012 US 8; 000b1013 OB 0800");
    // An existing entry is not replaced by what a later stream says.
    EXPECT_EQ(Show(SRead(Stream("0B00 1010 'SH' 0200 'ab'")).set), "000b1010 LO ab");
}

TEST(Decode, GathersTheElementsOfAllItemsInOneSet)
{
    const std::string expected = "00081140 SQ {00080100 SH A; 00080104 LO one; 00080100 SH B}; 00100020 LO 7";
    const CByteArray after = Stream("1000 2000 'LO' 0200 '7 '");
    const auto withoutPad = [](std::string text) { return text.substr(0, text.find_last_not_of(' ') + 1); };
    const CByteArray undefined = Stream("0800 4011 'SQ' 0000 FFFFFFFF"
                                        "FEFF 00E0 FFFFFFFF"         // item of undefined length
                                        "0800 0001 'SH' 0100 'A'"    //
                                        "0800 0401 'LO' 0300 'one'"  //
                                        "FEFF 0DE0 00000000"         // item delimiter
                                        "FEFF 00E0 09000000"         // item of defined length
                                        "0800 0001 'SH' 0100 'B'"    //
                                        "FEFF DDE0 00000000");       // sequence delimiter
    const CByteArray defined = Stream("0800 4011 'SQ' 0000 2D000000" // 8 + 9 + 11 + 8 + 9 bytes
                                      "FEFF 00E0 14000000"           //
                                      "0800 0001 'SH' 0100 'A'"      //
                                      "0800 0401 'LO' 0300 'one'"    //
                                      "FEFF 00E0 99999999"           // item lengths are never used
                                      "0800 0001 'SH' 0100 'B'");
    for (const CByteArray& stream : {undefined, defined})
    {
        const SRead read(stream + after);
        EXPECT_EQ(withoutPad(Show(read.set)), expected);
        EXPECT_EQ(NoteOf(read), std::pair(READ_ITEMS_GATHERED + 0, 2U));
    }
    // A sequence without delimiter takes the rest of the stream. Bytes after its last element are noted all the same.
    CByteArray open = undefined;
    open.SetSize(open.GetSize() - 8);
    EXPECT_EQ(SRead(open + after).set.GetCount(), 1);
    const SRead cut(Part10(open + Stream("010203")));
    ASSERT_EQ(cut.parser.Notes().size(), 2u);
    EXPECT_EQ(cut.parser.Notes()[1].note, READ_BYTES_LEFT);
    EXPECT_EQ(cut.parser.Notes()[1].count, 3u);
}

TEST(Decode, SequenceEndsAreLookedAtBehindEachElement)
{
    // An empty sequence of defined length takes the element that follows it, and no more.
    const SRead empty(Stream("0800 4011 'SQ' 0000 00000000 1000 2000 'LO' 0200 'AB' 1000 3000 'DA' 0000"));
    EXPECT_EQ(Show(empty.set), "00081140 SQ {00100020 LO AB}; 00100030 DA");
    EXPECT_EQ(NoteOf(empty), std::pair(READ_BEYOND_LENGTH + 0, 10U));
    // At top level a delimiter ends the read, and what follows it is not read.
    EXPECT_EQ(Show(SRead(Stream("0800 6000 'CS' 0200 'MR' FEFF DDE0 00000000 FFFFFFFF")).set), "00080060 CS MR");
    // Items of a tag that is not a sequence are dropped.
    const SRead dropped(Stream("0800 6000 'SQ' 0000 FFFFFFFF FEFF 00E0 0A000000 1000 2000 'LO' 0200 'AB'"
                               "FEFF DDE0 00000000 1000 3000 'DA' 0000"));
    EXPECT_EQ(Show(dropped.set), "00080060 CS; 00100030 DA");
    EXPECT_EQ(NoteOf(dropped).first, READ_ITEMS_DROPPED);
}

TEST(Decode, ValuesReadFromAFileOutliveIt)
{
    // Large values are in the block that the file was read into, small ones are not.
    const CByteArray stream = Stream("0800 6000 'CS' 0200 'MR' E07F 1000 'OW' 0000 00000200") + Repeated(0x5A, 0x20000);
    CFile("values.dcm", CFile::modeCreate | CFile::modeWrite)
        .Write(stream.GetData(), static_cast<UINT>(stream.GetSize()));
    CDcmElementSet set;
    {
        CFile file("values.dcm", CFile::modeRead);
        CArchive archive(&file, CArchive::load);
        BYTE first = 0;
        archive >> first; // What the archive has buffered does not matter to the decoder once it is put back.
        CDcmParser::Rewind(archive);
        EXPECT_EQ(file.GetPosition(), 0u);
        CDcmParser().SerializeSet(archive, set);
    }
    CFile("values.dcm", CFile::modeCreate | CFile::modeWrite).SetLength(0);
    EXPECT_EQ(HexText(Written(set, SYNTAX_EXPLICIT_LITTLE)), HexText(stream));
    std::remove("values.dcm");
}
