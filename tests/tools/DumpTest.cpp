#include "ToolRunner.h"

using CommandLine = ToolTest;
using Dump = ToolTest;

namespace
{

const std::string kPatient =
    Explicit(0x00080060, "CS", "MR") + Explicit(0x00100010, "PN", "Doe^Jane") + Explicit(0x00100020, "LO", "P1");

// A value that ends after the end of the stream.
const std::string kCutShort = kPatient.substr(0, kPatient.size() - 1);

} // namespace

TEST_F(CommandLine, WrongUsageIsStatusOneWithAComplaintOnStandardError)
{
    for (const char* arguments :
         {"", "dump", "modules", "convert in.dcm", "convert -s other in.dcm out.dcm", "dump -q -v in.dcm"})
    {
        EXPECT_EQ(Expect(1, arguments, "varnotix: ").out, "") << arguments;
    }
    Expect(1, "dmup in.dcm", "there is no verb 'dmup'; the nearest one is 'dump'",
           "The verbs are dump, list, convert, ");
    Expect(1, "--classic Anon in.dcm", "the nearest one is 'anonymize'");
    Expect(1, "version", "there is no verb 'version'\n");
    Write("in.dcm", "");
    Expect(1, "in.dcm", "there is no verb before 'in.dcm'; 'varnotix dump in.dcm' shows what is in it");
}

TEST_F(CommandLine, HelpAndVersionAreData)
{
    const SRun help = Expect(0, "--help");
    EXPECT_EQ(help.err, "");
    EXPECT_TRUE(Holds(help.out, "dump", "VARNOTIX_DATA", "Exit status"));
    EXPECT_EQ(Run("--version").out.substr(0, 9), "varnotix ");
    EXPECT_EQ(Expect(0, "help").out, help.out);
    EXPECT_EQ(Expect(0, "help dump").out, Run("dump --help").out);
}

TEST_F(CommandLine, WhereNamesTheFilesThatWereLoaded)
{
    const CDcmRegistry& registry = CDcmRegistry::Global();
    EXPECT_TRUE(Holds(Expect(0, "where").out, "dictionary.txt, " + std::to_string(registry.DictionarySize()) + " rows",
                      "UidTable.txt, " + std::to_string(registry.UidDictionarySize()) + " rows",
                      "the current directory: "));
    // Without a dictionary it is the one verb that works.
    Write("dictionary.txt", "");
    Write("in.dcm", Part10(kExplicitUid, kPatient));
    Expect(20, "convert -s big in.dcm out.dcm", "there is no data dictionary", "set VARNOTIX_DATA to its folder");
    EXPECT_FALSE(std::filesystem::exists("out.dcm"));
    EXPECT_TRUE(Holds(Expect(0, "where").out, "dictionary.txt, 0 rows"));
}

TEST_F(Dump, ReadsStandardInputByteForByte)
{
    // A line end of one system and the end-of-text mark of another must come through.
    Write("in.dcm", kPatient + Explicit(0x00204000, "LT", "one\r\ntwo\x1A!") + Explicit(0x00280010, "US", "\x0D\x0A"));
    EXPECT_TRUE(
        Holds(Expect(0, "dump - <in.dcm").out, "#SOURCE_FILE=\n", "[one\r\ntwo\x1A!,]", "0028,0010,US,1,Rows,[2573,]"));
}

TEST_F(Dump, GoesOnBehindABadInputAndEndsWithTheWorstStatus)
{
    Write("good.dcm", Part10(kExplicitUid, kPatient));
    const std::string missing = "varnotix: cannot open 'missing.dcm': No such file or directory\n";
    const SRun run = Expect(20, "dump missing.dcm . good.dcm", missing,
                            "varnotix: cannot open '.': ", "varnotix: 2 of 3 inputs could not be read\n");
    EXPECT_TRUE(Holds(run.out, "[Doe^Jane,]"));
    EXPECT_EQ(Expect(20, "dump -q missing.dcm good.dcm").err, missing);
}

TEST_F(Dump, ReportsWhyAStreamCannotBeReadToItsEnd)
{
    const std::string cutShort = Part10(kExplicitUid, kCutShort);
    Write("short.dcm", cutShort);
    const std::string cutOff =
        "cut off at byte " + std::to_string(cutShort.size()) + " inside (0010,0020) Patient ID\n";
    const SRun run = Expect(20, "--classic dump -v short.dcm");
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "varnotix: short.dcm: " + cutOff +
                           "  explicit VR big endian: fault 2 at offset 138: "
                           "a tag that the dictionary lacks, or an unknown VR\n"
                           "  explicit VR little endian: fault 5 at offset " +
                           std::to_string(cutShort.size()) + ": the stream ends inside a value\n");
    Write("empty.dcm", "");
    Write("bare.dcm", std::string(128, '\0') + "DICM");
    Write("other.dcm", "PK\3\4 and what follows");
    for (const std::string rules : {"", "--classic "})
    {
        Expect(20, rules + "dump empty.dcm bare.dcm other.dcm", "empty.dcm: not DICOM: it is empty\n",
               "bare.dcm: it has no elements\n", "other.dcm: not DICOM: it begins with 'PK'\n");
    }
    // What is whole is shown, but not written.
    for (const char* arguments : {"dump short.dcm", "modules short.dcm"})
    {
        const SRun part = Expect(20, arguments);
        EXPECT_EQ(part.err, "varnotix: short.dcm: " + cutOff);
        EXPECT_TRUE(Holds(part.out, "Doe^Jane"));
    }
    Expect(20, "convert short.dcm out.dcm", cutOff);
    EXPECT_FALSE(std::filesystem::exists("out.dcm"));
}

TEST_F(Dump, ReadsInABatchAsAlone)
{
    Write("one.dcm", Part10(kExplicitUid, Explicit(0x00091001, "LO", "text")));
    Write("two.dcm", Part10(kExplicitUid, Explicit(0x00091001, "US", "\1\2")));
    for (const std::string rules : {"", "--classic "})
    {
        const std::string one = Expect(0, rules + "dump one.dcm").out;
        const std::string two = Expect(0, rules + "dump two.dcm").out;
        EXPECT_EQ(Expect(0, rules + "dump one.dcm two.dcm").out, one + two);
        EXPECT_TRUE(Holds(two, ",US,"));
    }
}

TEST_F(Dump, ShowsSignedValuesAndLaterVrs)
{
    const auto later = [](unsigned long tag, const std::string& vr, const std::string& value)
    { return Tag(tag) + vr + LittleEndian(0, 2) + LittleEndian(value.size(), 4) + value; };
    Write("in.dcm", Part10(kExplicitUid,
                           later(0x00080119, "UC", "long") + Explicit(0x00081161, "UL", LittleEndian(0xFFFFFFFF, 4)) +
                               Explicit(0x00186020, "SL", LittleEndian(0xFFFFFFFE, 4)) +
                               Explicit(0x00280106, "SS", LittleEndian(0xFFFD, 2)) +
                               later(0x00720082, "SV", LittleEndian(0xFFFFFFFC, 4) + "\xFF\xFF\xFF\xFF")));
    EXPECT_TRUE(Holds(Expect(0, "dump in.dcm").out, "0008,0119,UC,1,Long Code Value,[long,]",
                      "0008,1161,UL,-1,Simple Frame List,[4294967295,]", "Reference Pixel X0,[-2,]",
                      "0028,0106,SS,1,Smallest Image Pixel Value,[-3,]"));
    EXPECT_TRUE(Holds(Expect(0, "modules in.dcm").out, "(0008,0119) UC: long", "UL: 4294967295", "SL: -2", "SS: -3",
                      "(0072,0082) SV: -4"));
    Run("dump in.dcm", "script");
    Expect(0, "apply script in.dcm -o out.dcm", "0 values changed, 0 attributes added");
    EXPECT_EQ(Read("out.dcm"), Read("in.dcm"));
    // The form of the classic rules is understood as well.
    Write("script", "0008,0119,UT,1,,[long,]\n0008,1161,UL,-1,,[-1,]\n0028,0106,SS,1,,[65533,]\n");
    Expect(0, "apply script in.dcm -o out.dcm", "0 values changed, 0 attributes added");
}

TEST_F(Dump, ShowsPeopleTextsInUtf8)
{
    const std::string item = Explicit(0x00080005, "CS", "ISO_IR 192") + Explicit(0x00080050, "SH", "\xC3\xA4\x1B ");
    Write("in.dcm", Part10(kExplicitUid, Explicit(0x00080005, "CS", "ISO_IR 100") +
                                             Explicit(0x00100010, "PN", "J\xF6rg\x1B[31m ") +
                                             Explicit(0x00400275, "SQ", Item(item))));
    EXPECT_TRUE(Holds(Expect(0, "modules in.dcm").out, "PN: J\xC3\xB6rg.[31m\n", "SH: \xC3\xA4.\n"));
    EXPECT_TRUE(Holds(Expect(0, "dump in.dcm").out, "[J\xF6rg\x1B[31m ,]"));
    std::string printed;
    if (RunOnTerminal("dump in.dcm", printed))
    {
        EXPECT_TRUE(Holds(printed, "Name,[J\xC3\xB6rg.[31m ,]\n"));
    }
}

TEST_F(Dump, AFullDeviceIsAnOutputThatCannotBeWritten)
{
    if (!std::filesystem::exists("/dev/full"))
    {
        GTEST_SKIP() << "this system has no device that is always full";
    }
    Write("in.dcm", Part10(kExplicitUid, kPatient));
    for (const char* arguments : {"dump in.dcm", "modules in.dcm", "convert -s big in.dcm -", "where", "--help"})
    {
        const SRun run = Run(arguments, "/dev/full");
        EXPECT_EQ(run.status, 40) << arguments;
        EXPECT_TRUE(Holds(run.err, "cannot write to the standard output: No space left on device")) << arguments;
    }
    Expect(40, "convert -s big in.dcm /dev/full");
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}
