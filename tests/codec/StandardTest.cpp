// The standard stream rules: what is read is what is written, item by item and byte by byte.

#include "StandardStreams.h"
#include "StreamBytes.h"
#include "Varnotix/registry/DcmRegistry.h"

#include <gtest/gtest.h>

namespace
{

struct SStandardRead : SRead
{
    explicit SStandardRead(const CByteArray& stream) : SRead(stream, STREAM_RULES_STANDARD) {}
};

CByteArray WrittenByStandard(CDcmElementSet& set, int syntax, bool groupLengths = false)
{
    return Written(set, syntax, groupLengths, STREAM_RULES_STANDARD);
}

constexpr const char* kModality = "0800 6000 'CS' 0200 'MR'";

} // namespace

TEST(StandardRules, WriteTheBytesThatTheyRead)
{
    for (const SConformingStream& stream : kConformingStreams)
    {
        const CByteArray bytes = Zeroed(stream.bytes);
        SStandardRead read(bytes);
        EXPECT_EQ(read.parser.OutputSyntax(), stream.syntax) << stream.promise;
        EXPECT_FALSE(read.parser.ReadStopped()) << stream.promise << ": " << read.Notes();
        EXPECT_EQ(HexText(WrittenByStandard(read.set, stream.syntax)), HexText(bytes)) << stream.promise;
        CDcmElementSet copy;
        copy.CopyByValue(read.set);
        copy.Sort();
        EXPECT_EQ(HexText(WrittenByStandard(copy, stream.syntax)), HexText(bytes)) << "a copy: " << stream.promise;
    }
}

TEST(StandardRules, GiveTheSameObjectInEverySyntax)
{
    for (const SConformingStream& stream : kConformingStreams)
    {
        SStandardRead read(Zeroed(stream.bytes));
        for (const int syntax : {SYNTAX_IMPLICIT_LITTLE, SYNTAX_EXPLICIT_LITTLE, SYNTAX_EXPLICIT_BIG})
        {
            const CByteArray other = WrittenByStandard(read.set, syntax);
            SStandardRead again(other);
            // Implicit VR has no VRs, so what it gives explicitly may have other ones.
            if (syntax != SYNTAX_IMPLICIT_LITTLE && stream.syntax != SYNTAX_IMPLICIT_LITTLE)
            {
                EXPECT_EQ(Show(again.set), Show(read.set)) << stream.promise;
            }
            EXPECT_EQ(HexText(WrittenByStandard(again.set, syntax)), HexText(other)) << stream.promise;
        }
    }
}

TEST(StandardRules, FindTheSyntaxOfTheMetaInformation)
{
    const CByteArray implicit = Stream("0800 6000 02000000 'MR'");
    const CByteArray big = Stream("0008 0060 'CS' 0002 'MR'");
    const CByteArray little = Stream(kModality);
    const auto meta = [](const char* uid) { return Stream(uid); };
    struct SCase
    {
        const char* promise;
        CByteArray stream;
        int syntax;
        const char* notes;
    };
    const SCase cases[] = {
        {"with a group length",
         Part10(meta("0200 0000 'UL' 0400 1A000000 0200 1000 'UI' 1200 '1.2.840.10008.1.2' 00")) + implicit,
         SYNTAX_IMPLICIT_LITTLE, ""},
        {"without one", Part10(meta("0200 1000 'UI' 1200 '1.2.840.10008.1.2' 00")) + implicit, SYNTAX_IMPLICIT_LITTLE,
         ""},
        {"with a wrong one",
         Part10(meta("0200 0000 'UL' 0400 FF000000 0200 1000 'UI' 1400 '1.2.840.10008.1.2.2' 00")) + big,
         SYNTAX_EXPLICIT_BIG, "14:00020000@132"},
        {"that names none", Part10(meta("0200 0200 'UI' 0200 '1' 00")) + big, SYNTAX_EXPLICIT_BIG, ""},
        {"that names an unknown one", Part10(meta("0200 1000 'UI' 0200 '1' 00")) + implicit, SYNTAX_IMPLICIT_LITTLE,
         ""},
        {"that names another than the data set has",
         Part10(meta("0200 1000 'UI' 1400 '1.2.840.10008.1.2.1' 00")) + implicit, SYNTAX_IMPLICIT_LITTLE,
         "6:00020010@160"},
        {"without a data set", Part10(meta("0200 1000 'UI' 1400 '1.2.840.10008.1.2.2' 00")), SYNTAX_EXPLICIT_BIG, ""},
        {"that is missing, little endian", little, SYNTAX_EXPLICIT_LITTLE, ""},
        {"that is missing, big endian", big, SYNTAX_EXPLICIT_BIG, ""},
        {"that is missing, implicit", implicit, SYNTAX_IMPLICIT_LITTLE, ""},
    };
    for (const SCase& one : cases)
    {
        SStandardRead read(one.stream);
        EXPECT_EQ(read.parser.OutputSyntax(), one.syntax) << one.promise;
        EXPECT_EQ(read.Notes(), one.notes) << one.promise;
    }
}

TEST(StandardRules, SayWhereTheyStopAndKeepWhatIsWhole)
{
    struct SCase
    {
        const char* bytes;
        const char* trials;
        const char* kept;
    };
    const SCase cases[] = {
        {"0800 6000 'CS' 0200 'MR' 1000 1000 'PN' 0400 'Do'", "2:15@10", "00080060 CS MR"},
        {"0800 6000 'CS' 0200 'MR' 0800 4011 'SQ' 0000 FFFFFFFF FEFF 00E0 FFFFFFFF 0800 6011 'IS' 0200 '1 ' 0800",
         "2:15@40", "00080060 CS MR; 00081140 SQ {00081160 IS 1 }"},
        {"0800 6000 'CS' 0200 'MR' 0800 4011 'SQ' 0000 30000000 FEFF 00E0 0A000000 0800 6011 'IS' 0200 '1 '", "2:15@10",
         "00080060 CS MR; 00081140 SQ {00081160 IS 1 }"},
        {"0800 6000 'CS' 0200 'MR' E07F 1000 'OB' 0000 FFFFFFFF FEFF 00E0 00000000 FEFF 00E0 02000000 0102 FEFF 00E0"
         " 04000000 03",
         "2:15@40", "00080060 CS MR; 7fe00010 OB 0:0102"},
        {"0800 6000 'CS' 0200 'MR' 1000 1000 'PN' FFFF", "2:15@10", "00080060 CS MR"},
        {"0800 6000 'CS' 0200 'MR' 6600 2901 'OB' 0000 FFFFFFFF 0000", "2:19@10", "00080060 CS MR"},
        {"0800 6000 'CS' 0200 'MR' 0800 4011 'SQ' 0000 FFFFFFFF 0800 6011 'IS' 0200 '1 '", "2:18@22",
         "00080060 CS MR; 00081140 SQ {}"},
        {"'PK' 0304 1400 0000 0800 0000", "-1:17@0", ""},
        {"0102", "-1:13@0", ""},
    };
    for (const SCase& one : cases)
    {
        SStandardRead read(Stream(one.bytes));
        EXPECT_TRUE(read.parser.ReadStopped()) << one.bytes;
        EXPECT_EQ(read.Trials(), one.trials) << one.bytes;
        EXPECT_EQ(Show(read.set), one.kept) << one.bytes;
    }
    const CByteArray deflated = Part10(Stream("0200 1000 'UI' 1600 '1.2.840.10008.1.2.1.99'")) + Stream("4BB26060");
    EXPECT_EQ(SStandardRead(deflated + Stream("E20000000000")).Trials(), "2:16@162");
    std::string deep;
    for (int level = 0; level <= CDcmParser::kMaxDepth; ++level)
    {
        deep += "0800 4011 'SQ' 0000 FFFFFFFF FEFF 00E0 FFFFFFFF ";
    }
    EXPECT_EQ(SStandardRead(Stream(deep.c_str())).Trials(), "2:14@1280");
}

TEST(StandardRules, EndBeforeATagOfTheObjectItself)
{
    // The sequence holds the tag, too; what follows it in the object need not be whole.
    const CByteArray stream = Stream("0800 6000 'CS' 0200 'MR' 0800 4011 'SQ' 0000 12000000 FEFF 00E0 0A000000"
                                     " 1000 1000 'PN' 0200 'A ' 1000 1000 'PN' 0400 'Do'");
    SStandardRead read(Stream("0800 6000 'CS' 0200 'MR'"));
    for (const DWORD stop : {0x00100010U, 0x00081141U})
    {
        read.parser.SetStopTag(stop);
        read.Again(stream);
        EXPECT_FALSE(read.parser.ReadStopped());
        EXPECT_EQ(read.Notes(), "");
        EXPECT_EQ(Show(read.set), "00080060 CS MR; 00081140 SQ {00100010 PN A }");
    }
    read.parser.SetStopTag(0x00100020);
    read.Again(stream);
    EXPECT_TRUE(read.parser.ReadStopped());
}

TEST(StandardRules, ReadWhatBreaksThemWhereTheyCan)
{
    struct SCase
    {
        const char* bytes;
        const char* notes;
        const char* shown;
    };
    const SCase cases[] = {
        {"0800 6000 'CS' 0100 'M'", "11:00080060@0", "00080060 CS M"},
        {"1000 1000 'PN' 0000 0800 6000 'CS' 0200 'MR'", "12:00080060@8", "00100010 PN; 00080060 CS MR"},
        {"0800 6000 'CS' 0200 'MR' 1000 1000 02000000 'Do'", "8:00100010@10", "00080060 CS MR; 00100010 PN Do"},
        // Question marks or zero bytes in the place of the VR, with the length of an explicit header.
        {"0800 6000 'CS' 0200 'MR' 1000 1000 3F3F 0200 'Do' 1000 2000 'LO' 0000", "8:00100010@10",
         "00080060 CS MR; 00100010 PN Do; 00100020 LO"},
        {"0800 6000 'CS' 0200 'MR' 1000 1000 0000 0200 'Do'", "8:00100010@10", "00080060 CS MR; 00100010 PN Do"},
        {"0800 6000 'CS' 0200 'MR' 1100 0110 3F3F 0000 02000000 'Do' 2000 0D00 'UI' 0000", "8:00111001@10",
         "00080060 CS MR; 00111001 UN 446F; 0020000d UI"},
        {"0800 6000 'CS' 0200 'MR' 1000 1000 04000000 'US. ' 1000 2000 02000000 '1 ' 1000 3000 'DA' 0000",
         "8:00100010@10 8:00100020@22", "00080060 CS MR; 00100010 PN US. ; 00100020 LO 1 ; 00100030 DA"},
        {"0800 6000 'CS' 0200 'MR' 1000 1000 'ZZ' 0200 'Do'", "7:00100010@10", "00080060 CS MR; 00100010 UN 446F"},
        {"0800 6000 'CS' 0200 'MR' 0800 4011 'SQ' 0000 04000000 'abcd'", "13:00081140@10",
         "00080060 CS MR; 00081140 UN 61626364"},
        {"E07F 1000 'OB' 0000 FFFFFFFF FEFF DDE0 00000000", "15:7fe00010@0", "7fe00010 OB"},
        {"0800 4011 'SQ' 0000 14000000 FEFF 00E0 0A000000 0800 6011 'IS' 0400 '1234'", "9:00081160@20",
         "00081140 SQ {00081160 IS 1234}"},
        {"0800 4011 'SQ' 0000 1A000000 FEFF 00E0 0A000000 0800 6011 'IS' 0200 '1 ' FEFF 0DE0 00000000",
         "10:fffee00d@30", "00081140 SQ {00081160 IS 1 }"},
        {"0800 4011 'SQ' 0000 26000000 FEFF 00E0 1E000000 0800 9911 'SQ' 0000 FFFFFFFF FEFF 00E0 0A000000"
         " 0800 6011 'IS' 0200 '1 ' 1000 1000 'PN' 0000",
         "10:fffee0dd@50", "00081140 SQ {00081199 SQ {00081160 IS 1 }}; 00100010 PN"},
        {"0800 6000 'CS' 0200 'MR' FEFF DDE0 00000000 1000 1000 'PN' 0000", "10:fffee0dd@10",
         "00080060 CS MR; 00100010 PN"},
        {"0800 6000 'CS' 0200 'MR' 0000000000000000000000", "4:00000000@10", "00080060 CS MR"},
    };
    for (const SCase& one : cases)
    {
        SStandardRead read(Stream(one.bytes));
        EXPECT_EQ(read.Notes(), one.notes) << one.bytes;
        EXPECT_EQ(Show(read.set), one.shown) << one.bytes;
    }
}

TEST(StandardRules, PadAndLengthenByTheRulesOfTheVr)
{
    SStandardRead read(Stream("0800 2000 'DA' 0500 '19991' 1800 1610 'UI' 0100 '1' 6600 2901 'OB' 0000 01000000 07"));
    EXPECT_EQ(HexText(WrittenByStandard(read.set, SYNTAX_EXPLICIT_LITTLE)),
              HexText(Stream("0800 2000 'DA' 0600 '19991 ' 1800 1610 'UI' 0200 '1' 00"
                             " 6600 2901 'OB' 0000 02000000 0700")));
    for (const auto& [odd, even] :
         {std::pair("E07F 1000 'OB' 0000 01000000 07", "E07F 1000 'OB' 0000 02000000 0700"),
          {"E07F 1000 'OB' 0000 FFFFFFFF FEFF 00E0 00000000 FEFF 00E0 01000000 07 FEFF DDE0 00000000",
           "E07F 1000 'OB' 0000 FFFFFFFF FEFF 00E0 00000000 FEFF 00E0 02000000 0700 FEFF DDE0 00000000"}})
    {
        SStandardRead pixels(Stream(odd));
        EXPECT_EQ(HexText(WrittenByStandard(pixels.set, SYNTAX_EXPLICIT_LITTLE)), HexText(Stream(even)));
    }
    CDcmElementSet longText;
    longText.Add(new CDcmElement(0x0010, 0x4000)); // LT, a short form
    longText.GetAt(0)->AddText(CString('x', 65536));
    const CByteArray bytes = WrittenByStandard(longText, SYNTAX_EXPLICIT_LITTLE);
    EXPECT_EQ(HexText(bytes.GetData(), 14), HexText(Stream("1000 0040 'UN' 0000 00000100 'xx'")));
    EXPECT_EQ(SStandardRead(bytes).set.GetAt(0)->RawBytes().Size(), 65536U);
}

TEST(StandardRules, ChooseVrsByTheContextInImplicitSyntax)
{
    // Smallest Pixel Value in a data set with signed pixels, in an item that inherits them, and without any.
    const char* smallest = "2800 0601 02000000 FFFF";
    SStandardRead read(Stream((std::string("0800 4011 12000000 FEFF 00E0 0A000000 ") + smallest + smallest +
                               "2800 0301 02000000 0100 0060 0030 02000000 0102 0900 1000 02000000 'C ' 0900 0110 "
                               "02000000 'xy' E07F 1000 02000000 0102")
                                  .c_str()));
    EXPECT_EQ(Show(read.set), "00081140 SQ {00280106 SS 65535}; 00280106 SS 65535; 00280103 US 1; 60003000 OW 513; "
                              "00090010 LO C ; 00091001 UN 7879; 7fe00010 OW 0:0102");
    EXPECT_EQ(Show(SStandardRead(Stream(smallest)).set), "00280106 US 65535");
}

TEST(StandardRules, LearnNoPrivateTagsAndTakeNone)
{
    CDcmRegistry& registry = CDcmRegistry::Global();
    registry.AddSharedPrivateEntry(0x0009, 0x1055, "DA", 1);
    SStandardRead read(Stream("0800 6000 02000000 'MR' 0900 5510 02000000 'xy' 0900 5610 02000000 'xy'"));
    EXPECT_EQ(Show(read.set), "00080060 CS MR; 00091055 UN 7879; 00091056 UN 7879");
    EXPECT_EQ(registry.LookUpTag(0x0009, 0x1056), nullptr);
    const CDcmElement learned(0x0009, 0x1055);
    registry.ForgetPrivateEntries();
    EXPECT_EQ(registry.LookUpTag(0x0009, 0x1055), nullptr);
    EXPECT_EQ(learned.VrName(), "DA") << "an element made before keeps its entry";
    EXPECT_EQ(learned.Name(), "Private Data Element");
}
