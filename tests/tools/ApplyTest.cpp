#include "ToolRunner.h"

#include <bit>
#include <utility>

using namespace std::string_literals;

class Apply : public ToolTest
{
protected:
    /// The text with one part replaced, which must be there.
    static std::string Replaced(std::string text, const std::string& from, const std::string& to)
    {
        const std::size_t place = text.find(from);
        EXPECT_NE(place, std::string::npos) << from << " is not in:\n" << text;
        return place == std::string::npos ? text : text.replace(place, from.size(), to);
    }

    /// Writes the object's text, with one part replaced, as a script.
    static void WriteScript(const std::string& object, const std::string& from, const std::string& to)
    {
        Write("s.asl", Replaced(Expect(0, "dump " + object).out, from, to));
    }
};

namespace
{

std::string FloatBytes(float value)
{
    return LittleEndian(std::bit_cast<std::uint32_t>(value), 4);
}

/// An object of values that the text form does not carry, and of some that it does.
std::string AwkwardDataSet()
{
    const auto reference = [](const std::string& uid)
    { return Item(Explicit(0x00081150, "UI", PaddedUid("1.2.3")) + Explicit(0x00081155, "UI", PaddedUid(uid))); };
    return Explicit(0x00080008, "CS", "DERIVED\\SECONDARY ") + Explicit(0x00080016, "UI", PaddedUid("1.2.3.9")) +
           Explicit(0x00080018, "UI", PaddedUid("1.2.3.10")) +
           Explicit(0x00081140, "SQ", reference("1.1") + reference("1.2") + reference("1.3")) +
           Explicit(0x00091001, "OB", "12AB") + Explicit(0x00091002, "UN", "what") +
           Explicit(0x00091003, "OB", std::string(5001, '\1')) + Explicit(0x00100010, "PN", "Doe^Jane") +
           Explicit(0x00100020, "LO", "Smith, [J]") + Explicit(0x00104000, "LT", "one\n#SEQUENCE_END\r\n0010,0010,") +
           Explicit(0x00186020, "SL", LittleEndian(0xFFFFFFFF, 4)) +
           Explicit(0x00189087, "FD", std::string(7, '\1') + '?') + Us(0x00280010, 1) + Us(0x00280011, 2) +
           Us(0x00280100, 16) + Explicit(0x00280106, "SS", LittleEndian(0xFFFE, 2)) +
           Explicit(0x00281201, "OW", LittleEndian(0x01020304, 4)) +
           Explicit(0x00720076, "FL", FloatBytes(1.23456789F)) +
           Explicit(0x7FE00010, "OW", LittleEndian(0x01020304, 4));
}

} // namespace

TEST_F(Apply, ChangesOneValueOfASampleAndNoOtherByte)
{
    const std::filesystem::path folder = SampleFolder();
    if (folder.empty())
    {
        GTEST_SKIP() << "VARNOTIX_SAMPLES names no folder";
    }
    const std::pair<const char*, const char*> samples[] = {
        {"explicit", "CT_small.dcm"},   {"implicit", "MR_small_implicit.dcm"}, {"big", "MR_small_bigendian.dcm"},
        {"explicit", "SC_rgb_rle.dcm"}, {"explicit", "JPEG-lossy.dcm"},        {"implicit", "rtplan.dcm"}};
    for (const auto& [syntax, name] : samples)
    {
        const std::string sample = "\"" + (folder / name).string() + "\"";
        Expect(0, std::string("convert -q -s ") + syntax + " " + sample + " converted.dcm");
        std::string script = Run("dump " + sample).out;
        const std::string start = "\n0010,0020,LO,1,Patient ID,[";
        const std::size_t place = script.find(start) + start.size();
        ASSERT_LT(place, script.size()) << name;
        const char old = std::exchange(script[place], '~');
        Write("s.asl", script);
        Expect(0, "apply s.asl " + sample + " -o applied.dcm", "1 value changed, 0 attributes added");

        std::string applied = Read("applied.dcm");
        const std::string expected = Read("converted.dcm");
        ASSERT_EQ(applied.size(), expected.size()) << name;
        const auto [mine, theirs] = std::mismatch(applied.begin(), applied.end(), expected.begin());
        ASSERT_NE(mine, applied.end()) << name;
        EXPECT_EQ(std::exchange(*mine, old), '~') << name;
        EXPECT_TRUE(applied == expected) << name;
    }
}

TEST_F(Apply, AnUneditedTextChangesNoSample)
{
    const std::filesystem::path folder = SampleFolder();
    if (folder.empty())
    {
        GTEST_SKIP() << "VARNOTIX_SAMPLES names no folder";
    }
    for (const auto& entry : std::filesystem::directory_iterator(folder))
    {
        const std::string sample = "\"" + entry.path().string() + "\"";
        if (entry.path().extension() == ".dcm" && Run("convert -q " + sample + " converted.dcm").status == 0)
        {
            Write("s.asl", Run("dump " + sample).out);
            Expect(0, "apply s.asl " + sample + " -o applied.dcm", "0 values changed, 0 attributes added\n");
            EXPECT_TRUE(Read("applied.dcm") == Read("converted.dcm")) << sample;
        }
    }
}

TEST_F(Apply, EditsAndAddsItems)
{
    const auto item = [](const std::string& uid) { return Item(Explicit(0x00081155, "UI", PaddedUid(uid))); };
    const auto file = [](const std::string& items)
    { return Part10(kExplicitUid, Explicit(0x00081140, "SQ", items) + Explicit(0x00100010, "PN", "Doe^Jane")); };
    Write("in.dcm", file(item("1.1") + item("") + item("1.1")));
    const auto apply = [](const std::string& lines)
    {
        Write("s.asl", "0008,1140,SQ,1,,[]\n#SEQUENCE_BEGIN\n" + lines + "#SEQUENCE_END\n");
        return Run("apply s.asl in.dcm -o out.dcm");
    };
    EXPECT_TRUE(Holds(apply("#ITEM=2\n0008,1155,UI,1,,[1.2,]\n#ITEM=4\n#ITEM=5\n0008,1155,UI,1,,[1.5,]\n").err,
                      "1 value changed, 1 attribute added, 2 items added"));
    EXPECT_EQ(Read("out.dcm"), file(item("1.1") + item("1.2") + item("1.1") + Item("") + item("1.5")));

    // Whatever may be meant for another item is refused.
    for (const char* lines : {"0008,1155,UI,1,,[1.2,]\n", "0008,1150,UI,1,,[1.2,]\n", "#ITEM=5\n", "#ITEM=2\n#ITEM=1\n",
                              "0008,1155,UI,1,,[1.1,]\n#ITEM=2\n"})
    {
        EXPECT_EQ(apply(lines).status, 20) << lines;
    }
}

TEST_F(Apply, LeavesAloneWhatTextDoesNotCarry)
{
    Write("in.dcm", Part10(kExplicitUid, AwkwardDataSet()));
    Expect(0, "convert -q -s explicit in.dcm expected.dcm");

    WriteScript("in.dcm", "", "");
    Expect(0, "apply s.asl in.dcm -o same.dcm", "0 values changed, 0 attributes added");
    EXPECT_EQ(Read("same.dcm"), Read("expected.dcm"));

    // The script may come with other line ends, and in parts.
    WriteScript("in.dcm", "[1.2,]", "[1.9,]");
    std::string script = "\xEF\xBB\xBF" + Read("s.asl");
    script =
        Replaced(script, script.substr(script.find("0072,0076"), script.find("7fe0,") - script.find("0072,0076")), "");
    script = Replaced(script, "0008,0016", "; a comment\r\n0008,0016");
    Write("s.asl", script);
    Expect(0, "apply -q - in.dcm -o changed.dcm <s.asl");
    EXPECT_EQ(Read("changed.dcm"), Replaced(Read("expected.dcm"), "1.2\0"s, "1.9\0"s));
}

TEST_F(Apply, ReplacesAddsAndEmpties)
{
    const auto longCode = [](const std::string& text)
    { return Tag(0x00080119) + "UC" + LittleEndian(0, 2) + LittleEndian(text.size(), 4) + text; };
    Write("in.dcm", Part10(kExplicitUid, AwkwardDataSet() + longCode("old ")));
    Write("s.asl", "0008,0119,UT,1,Long Code Value,[new,]\n0008,0008,CS,-1,Image Type,[ORIGINAL,PRIMARY,AXIAL,]\n"
                   "0009,1001,OB,1,Private Data Element,[1,200,]\n"
                   "0010,0020,LO,1,Patient ID,[]\n"
                   "0010,4000,LT,1,Patient Comments,[short, with a comma,]\n"
                   "0028,0106,US,1,,[]\n"
                   "0028,0106,SS,1,,[-3,]\n"
                   "0018,1010,LO,1,Secondary Capture Device ID,[new, too,]\n"
                   "0008,2112,SQ,1,Source Image Sequence,[1]\n"
                   "#SEQUENCE_BEGIN\n"
                   "   0008,1155,UI,1,Referenced SOP Instance UID,[1.7,]\n"
                   "#SEQUENCE_END\n");
    Expect(20, "apply s.asl in.dcm -o out.dcm");
    Write("s.asl", Replaced(Read("s.asl"), "0028,0106,US,1,,[]\n", ""));
    // An editor may write another character set than that of the object.
    Write("utf.asl", "0010,0020,LO,1,,[J\xC3\xB6rg,]\n");
    Expect(0, "apply utf.asl in.dcm -o utf.dcm", "utf.asl:1: the text is UTF-8");
    Expect(0, "apply -v s.asl in.dcm -o out.dcm", "s.asl:4: (0010,0020) Patient ID is changed",
           "in.dcm: 6 values changed, 2 attributes added");
    EXPECT_TRUE(Holds(Read("out.dcm"), Explicit(0x00080008, "CS", "ORIGINAL\\PRIMARY\\AXIAL"), longCode("new "),
                      Explicit(0x00091001, "OB", "\x01\xC8"), Explicit(0x00100020, "LO", ""),
                      Explicit(0x00104000, "LT", "short, with a comma "),
                      Explicit(0x00280106, "SS", LittleEndian(0xFFFD, 2)), Explicit(0x00181010, "LO", "new, too"),
                      Explicit(0x00081155, "UI", PaddedUid("1.7"))));
}

TEST_F(Apply, NamesEachLineThatCannotBeAppliedAndWritesNothing)
{
    Write("in.dcm", Part10(kExplicitUid, AwkwardDataSet()));
    Write("out.dcm", "old");
    const struct
    {
        const char* from;
        const char* to;
        const char* reason;
    } edits[] = {
        {"0018,9087,FD,1,Diffusion b-value,[", "0018,9087,FD,1,Diffusion b-value,[7,",
         "FD values cannot be read from text"},
        {"[772,258,]", "[772,259,]", "OW values cannot be read from text"},
        {"[Smith, [J],]", "[Smith, [K],]", "text outside the value list"},
        {"Rows,[1,]", "Rows,[1,2,]", "2 values, but the attribute takes 1"},
        {"[one", "[two", "a text with line breaks cannot be changed"},
        {"[5001,]", "[1,]", "the line only has the length"},
        {"[12AB]", "[12CD]", "bytes are numbers from 0 to 255, or one text without commas"},
        {"Rows,[1,]", "Rows,[1x,]", "not a number"},
        {"Rows,[1,]", "Rows,[65536,]", "out of range"},
        {"0010,0010,PN", "0010,0010,LO", "its VR is PN, and that cannot be changed"},
        {"1.2.840.10008.1.2.1,]", "1.2.840.10008.1.2.2,]", "use 'varnotix convert'"},
        {"7fe0,0010,OW,1,Pixel Data,[", "7fe0,0010,OW,1,Pixel Data,[x", "pixel data cannot be read from text"},
        {"0010,0010,", "0010,0010,PN,1,,[A,]\n0010,0010,", "already has this tag"},
        {"   0008,1155,UI,1,Referenced SOP Instance UID,[1.1,]\n",
         "   0008,1155,UI,1,,[1.8,]\n   0008,1155,UI,1,,[1.9,]\n", "already has this tag"},
        {"   #ITEM=1\n", "", "its number is not that of the next item"},
        {"0010,0010,", "0010,000Z,", "does not begin with a tag"},
        {"0010,0010,", "0010,9999,", "the dictionary does not know"},
        {"#SEQUENCE_BEGIN", "", "no #SEQUENCE_BEGIN follows"},
        {"0008,1140,SQ,1,Referenced Image Sequence,[6]\n#SEQUENCE_BEGIN", "0008,1140,LO,1,,[A,]\n#SEQUENCE_BEGIN",
         "its VR is SQ, and that cannot be changed"},
        {"0010,0010,PN,1,Patient's Name,[Doe^Jane,]", "0010,0010,SQ,1,,[1]\n#SEQUENCE_BEGIN\n#SEQUENCE_END",
         "its VR is PN, and that cannot be changed"},
        {"0010,0010,", "0001,0010,LO,1,,[A,]\n0010,0010,", "groups below 0002"},
    };
    const std::string dump = Run("dump in.dcm").out;
    for (const auto& edit : edits)
    {
        Write("s.asl", Replaced(dump, edit.from, edit.to));
        SCOPED_TRACE(edit.to);
        Expect(20, "apply s.asl in.dcm -o out.dcm", edit.reason, "varnotix: s.asl:");
    }
    Write("s.asl", "0028,0010,US,1,Rows,[x,]\n; fine\n0028,1201,OW,1,,[1,]\n0008,1140,SQ,1,,[]\n#SEQUENCE_BEGIN\n");
    Expect(20, "apply s.asl in.dcm -o out.dcm",
           "s.asl:1: ", "s.asl:3: ", "s.asl:5: the sequence that begins here has no #SEQUENCE_END",
           "nothing is written, because 3 lines cannot be applied");
    Write("s.asl", "0008,1110,SQ,1,,[]\n#SEQUENCE_BEGIN\n#SEQUENCE_END\n");
    Expect(20, "apply --classic s.asl in.dcm -o out.dcm", "an empty sequence");
    Expect(20, "apply missing.asl in.dcm -o out.dcm");
    Expect(20, "apply in.dcm in.dcm -o out.dcm", "in.dcm: it is a DICOM file, where a text is expected");
    Write("s.asl", "\xFF\xD8\xFF\xE0");
    Expect(20, "build s.asl -o out.dcm", "s.asl: it is a JPEG picture");
    Expect(20, "apply in.dcm s.asl -o out.dcm");
    Expect(1, "apply - - -o out.dcm <in.dcm");
    EXPECT_EQ(Read("out.dcm"), "old");
    EXPECT_EQ(CountTemporaries(), 0);
}
