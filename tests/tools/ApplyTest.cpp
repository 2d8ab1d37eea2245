#include "ToolRunner.h"

#include <bit>

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
        const SRun dump = Run("dump " + object);
        ASSERT_EQ(dump.status, 0) << dump.err;
        Write("s.asl", Replaced(dump.out, from, to));
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
           Explicit(0x00189087, "FD", std::string(7, '\1') + '?') + Explicit(0x00280010, "US", LittleEndian(1, 2)) +
           Explicit(0x00280011, "US", LittleEndian(2, 2)) + Explicit(0x00280100, "US", LittleEndian(16, 2)) +
           Explicit(0x00280106, "SS", LittleEndian(0xFFFE, 2)) +
           Explicit(0x00281201, "OW", LittleEndian(0x01020304, 4)) +
           Explicit(0x00720076, "FL", FloatBytes(1.23456789F)) +
           Explicit(0x7FE00010, "OW", LittleEndian(0x01020304, 4));
}

} // namespace

TEST_F(Apply, ChangesOneValueOfASampleAndNoOtherByte)
{
    const char* folder = std::getenv("VARNOTIX_SAMPLES");
    if (folder == nullptr || *folder == '\0')
    {
        GTEST_SKIP() << "VARNOTIX_SAMPLES names no folder";
    }
    const std::pair<const char*, const char*> samples[] = {
        {"explicit", "CT_small.dcm"},   {"implicit", "MR_small_implicit.dcm"}, {"big", "MR_small_bigendian.dcm"},
        {"explicit", "SC_rgb_rle.dcm"}, {"explicit", "JPEG-lossy.dcm"},        {"implicit", "rtplan.dcm"}};
    for (const auto& [syntax, name] : samples)
    {
        const std::string sample = "\"" + (std::filesystem::path(folder) / name).string() + "\"";
        ASSERT_EQ(Run(std::string("convert -q -s ") + syntax + " " + sample + " converted.dcm").status, 0) << name;
        std::string script = Run("dump " + sample).out;
        const std::string start = "\n0010,0020,LO,1,Patient ID,[";
        const std::size_t place = script.find(start) + start.size();
        ASSERT_LT(place, script.size()) << name;
        const char old = script[place];
        script[place] = '~';
        Write("s.asl", script);
        const SRun run = Run("apply s.asl " + sample + " -o applied.dcm");
        ASSERT_EQ(run.status, 0) << name << run.err;
        EXPECT_TRUE(Holds(run.err, "1 value changed, 0 attributes added")) << name;

        const std::string expected = Read("converted.dcm");
        const std::string applied = Read("applied.dcm");
        ASSERT_EQ(applied.size(), expected.size()) << name;
        const auto [mine, theirs] = std::mismatch(applied.begin(), applied.end(), expected.begin());
        ASSERT_NE(mine, applied.end()) << name;
        EXPECT_EQ(*mine, '~') << name;
        EXPECT_EQ(*theirs, old) << name;
        EXPECT_TRUE(std::equal(mine + 1, applied.end(), theirs + 1)) << name;
    }
}

TEST_F(Apply, LeavesAloneWhatTextDoesNotCarry)
{
    Write("in.dcm", Part10(kExplicitUid, AwkwardDataSet()));
    ASSERT_EQ(Run("convert -q -s explicit in.dcm expected.dcm").status, 0);

    WriteScript("in.dcm", "", "");
    const SRun same = Run("apply s.asl in.dcm -o same.dcm");
    ASSERT_EQ(same.status, 0) << same.err;
    EXPECT_TRUE(Holds(same.err, "0 values changed, 0 attributes added"));
    EXPECT_EQ(Read("same.dcm"), Read("expected.dcm"));

    // Of gathered items the place tells which value is meant. The script may come with other line ends, and in parts.
    WriteScript("in.dcm", "[1.2,]", "[1.9,]");
    std::string script = "\xEF\xBB\xBF" + Read("s.asl");
    script =
        Replaced(script, script.substr(script.find("0072,0076"), script.find("7fe0,") - script.find("0072,0076")), "");
    script = Replaced(script, "0008,0016", "; a comment\r\n0008,0016");
    Write("s.asl", script);
    ASSERT_EQ(Run("apply -q - in.dcm -o changed.dcm <s.asl").status, 0);
    EXPECT_EQ(Read("changed.dcm"), Replaced(Read("expected.dcm"), "1.2\0"s, "1.9\0"s));
}

TEST_F(Apply, ReplacesAddsAndEmpties)
{
    Write("in.dcm", Part10(kExplicitUid, AwkwardDataSet()));
    Write("s.asl", "0008,0008,CS,-1,Image Type,[ORIGINAL,PRIMARY,AXIAL,]\n"
                   "0009,1001,OB,1,Private Data Element,[1,200,]\n"
                   "0010,0020,LO,1,Patient ID,[]\n"
                   "0010,4000,LT,1,Patient Comments,[short,]\n"
                   "0028,0106,SS,1,,[]\n"
                   "0028,0106,US,1,,[-3,]\n"
                   "0018,1010,LO,1,Secondary Capture Device ID,[new,]\n"
                   "0008,2112,SQ,1,Source Image Sequence,[1]\n"
                   "#SEQUENCE_BEGIN\n"
                   "   0008,1155,UI,1,Referenced SOP Instance UID,[1.7,]\n"
                   "#SEQUENCE_END\n");
    EXPECT_EQ(Run("apply s.asl in.dcm -o out.dcm").status, 20);
    Write("s.asl", Replaced(Read("s.asl"), "0028,0106,SS,1,,[]\n", ""));
    const SRun run = Run("apply -v s.asl in.dcm -o out.dcm");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(Holds(run.err, "s.asl:3: (0010,0020) Patient ID is changed"));
    EXPECT_TRUE(Holds(run.err, "in.dcm: 5 values changed, 2 attributes added"));
    const std::string written = Read("out.dcm");
    for (const std::string& element :
         {Explicit(0x00080008, "CS", "ORIGINAL\\PRIMARY\\AXIAL"), Explicit(0x00091001, "OB", "\x01\xC8"),
          Explicit(0x00100020, "LO", ""), Explicit(0x00104000, "LT", "short "),
          Explicit(0x00280106, "US", LittleEndian(0xFFFD, 2)), Explicit(0x00181010, "LO", "new "),
          Explicit(0x00081155, "UI", PaddedUid("1.7"))})
    {
        EXPECT_TRUE(Holds(written, element));
    }
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
         "FD values do not come through text"},
        {"[772,258,]", "[772,259,]", "OW values do not come through text"},
        {"[Smith, [J],]", "[Smith, [K],]", "text outside the value list"},
        {"[Smith, [J],]", "[Smith,John,]", "2 values, and the attribute takes 1"},
        {"[one", "[two", "a text with line breaks cannot be changed"},
        {"[5001,]", "[1,]", "the line tells the length alone"},
        {"[12AB]", "[12CD]", "bytes are numbers from 0 to 255, or one text without commas"},
        {"Rows,[1,]", "Rows,[1x,]", "not a number"},
        {"Rows,[1,]", "Rows,[65536,]", "out of range"},
        {"0010,0010,PN", "0010,0010,LO", "its VR is PN, and that cannot be changed"},
        {"1.2.840.10008.1.2.1,]", "1.2.840.10008.1.2.2,]", "use 'varnotix convert'"},
        {"7fe0,0010,OW,1,Pixel Data,[", "7fe0,0010,OW,1,Pixel Data,[x", "pixel data does not come from text"},
        {"0010,0010,", "0010,0010,PN,1,,[A,]\n0010,0010,", "the tag has its line already"},
        {"   0008,1155,UI,1,Referenced SOP Instance UID,[1.1,]\n",
         "   0008,1155,UI,1,,[1.8,]\n   0008,1155,UI,1,,[1.9,]\n", "which one changed cannot be told"},
        {"0010,0010,", "0010,000Z,", "does not begin with a tag"},
        {"0010,0010,", "0010,9999,", "the dictionary does not know"},
        {"#SEQUENCE_BEGIN", "", "no #SEQUENCE_BEGIN follows"},
        {"0010,0010,", "0001,0010,LO,1,,[A,]\n0010,0010,", "groups below 0002"},
        {"0010,0010,", "0008,1110,SQ,1,,[]\n#SEQUENCE_BEGIN\n#SEQUENCE_END\n0010,0010,", "an empty sequence"},
    };
    const std::string dump = Run("dump in.dcm").out;
    for (const auto& edit : edits)
    {
        Write("s.asl", Replaced(dump, edit.from, edit.to));
        const SRun run = Run("apply s.asl in.dcm -o out.dcm");
        EXPECT_EQ(run.status, 20) << edit.to;
        EXPECT_TRUE(Holds(run.err, edit.reason)) << edit.to;
        EXPECT_TRUE(Holds(run.err, "varnotix: s.asl:")) << edit.to;
    }
    Write("s.asl", "0028,0010,US,1,Rows,[x,]\n; fine\n0028,1201,OW,1,,[1,]\n0008,1140,SQ,1,,[]\n#SEQUENCE_BEGIN\n");
    const SRun all = Run("apply s.asl in.dcm -o out.dcm");
    EXPECT_TRUE(Holds(all.err, "s.asl:1: "));
    EXPECT_TRUE(Holds(all.err, "s.asl:3: "));
    EXPECT_TRUE(Holds(all.err, "s.asl:5: the item that begins here has no #SEQUENCE_END"));
    EXPECT_TRUE(Holds(all.err, "nothing is written, because 3 lines cannot be applied"));

    EXPECT_EQ(Run("apply missing.asl in.dcm -o out.dcm").status, 20);
    EXPECT_EQ(Run("apply in.dcm s.asl -o out.dcm").status, 20);
    EXPECT_EQ(Run("apply - - -o out.dcm <in.dcm").status, 1);
    EXPECT_EQ(Read("out.dcm"), "old");
    EXPECT_EQ(CountTemporaries(), 0);
}
