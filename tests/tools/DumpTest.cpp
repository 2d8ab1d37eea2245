#include "ToolRunner.h"

class CommandLine : public ToolTest
{
};

class Dump : public ToolTest
{
};

namespace
{

const std::string kPatient =
    Explicit(0x00080060, "CS", "MR") + Explicit(0x00100010, "PN", "Doe^Jane") + Explicit(0x00100020, "LO", "P1");

// A value that ends behind the end of the stream.
const std::string kCutShort = kPatient.substr(0, kPatient.size() - 1);

} // namespace

TEST_F(CommandLine, WrongUsageIsStatusOneWithAComplaintOnStandardError)
{
    for (const char* arguments :
         {"", "nonsense", "dump", "convert in.dcm out.dcm", "convert -s other in.dcm out.dcm", "dump -q -v in.dcm"})
    {
        const SRun run = Run(arguments);
        EXPECT_EQ(run.status, 1) << arguments;
        EXPECT_EQ(run.out, "") << arguments;
        EXPECT_TRUE(Holds(run.err, "varnotix: ")) << arguments;
    }
    EXPECT_TRUE(Holds(Run("nonsense").err, "nonsense"));
}

TEST_F(CommandLine, HelpAndVersionAreData)
{
    const SRun help = Run("--help");
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.err, "");
    for (const char* word : {"dump", "convert", "where", "VARNOTIX_DATA", "Exit status"})
    {
        EXPECT_TRUE(Holds(help.out, word));
    }
    EXPECT_TRUE(Holds(Run("convert --help").out, "implicit,explicit,big"));
    EXPECT_EQ(Run("--version").out.substr(0, 9), "varnotix ");
}

TEST_F(CommandLine, WhereNamesTheFilesThatWereLoaded)
{
    const SRun run = Run("where");
    EXPECT_EQ(run.status, 0);
    CString dictionary;
    dictionary.Format("dictionary.txt, %d rows", CDcmRegistry::Global().DictionarySize());
    EXPECT_TRUE(Holds(run.out, static_cast<const char*>(dictionary)));
    CString uids;
    uids.Format("UidTable.txt, %d rows", CDcmRegistry::Global().UidDictionarySize());
    EXPECT_TRUE(Holds(run.out, static_cast<const char*>(uids)));
    EXPECT_TRUE(Holds(run.out, "the current directory: "));
}

TEST_F(CommandLine, AnEmptyDictionaryStopsAllVerbsButWhere)
{
    Write("dictionary.txt", "");
    Write("in.dcm", Part10(kExplicitUid, kPatient));
    for (const char* arguments : {"dump in.dcm", "convert -s big in.dcm out.dcm"})
    {
        const SRun run = Run(arguments);
        EXPECT_EQ(run.status, 20);
        EXPECT_EQ(run.out, "");
        EXPECT_TRUE(Holds(run.err, "there is no data dictionary"));
        EXPECT_TRUE(Holds(run.err, "set VARNOTIX_DATA to its folder"));
    }
    EXPECT_FALSE(FileExists("out.dcm"));
    const SRun where = Run("where");
    EXPECT_EQ(where.status, 0);
    EXPECT_TRUE(Holds(where.out, "dictionary.txt, 0 rows"));
}

TEST_F(Dump, PrintsTheDocumentThatTheLibraryMakes)
{
    Write("in.dcm", Part10(kExplicitUid, kPatient));
    CDcmCompositeIOD object; // What an object without SOP class is shown as.
    ReadObject("in.dcm", object);
    CStringArray lines;
    object.Export(lines);
    std::string document;
    for (const CString& line : lines)
    {
        document += std::string(line.View()) + "\n";
    }
    const SRun run = Run("dump in.dcm");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, document);
    EXPECT_EQ(run.err, "");
}

TEST_F(Dump, ReadsStandardInputByteForByte)
{
    // A line end of one system and the end-of-text mark of another must come through.
    Write("in.dcm", kPatient + Explicit(0x00204000, "LT", "one\r\ntwo\x1A!") + Explicit(0x00280010, "US", "\x0D\x0A"));
    const SRun run = Run("dump - <in.dcm");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(Holds(run.out, "#SOURCE_FILE=\n"));
    EXPECT_TRUE(Holds(run.out, "[one\r\ntwo\x1A!,]"));
    EXPECT_TRUE(Holds(run.out, "0028,0010,US,1,Rows,[2573,]"));
}

TEST_F(Dump, GoesOnBehindABadInputAndEndsWithTheWorstStatus)
{
    Write("good.dcm", Part10(kExplicitUid, kPatient));
    const SRun run = Run("dump missing.dcm . good.dcm");
    EXPECT_EQ(run.status, 20);
    EXPECT_TRUE(Holds(run.out, "[Doe^Jane,]"));
    EXPECT_TRUE(Holds(run.err, "cannot open 'missing.dcm': No such file or directory\n"));
    EXPECT_TRUE(Holds(run.err, "varnotix: cannot open '.': "));
    EXPECT_TRUE(Holds(run.err, "varnotix: 2 of 3 inputs could not be read\n"));

    const SRun quiet = Run("dump -q missing.dcm good.dcm");
    EXPECT_EQ(quiet.status, 20);
    EXPECT_EQ(quiet.err, "varnotix: cannot open 'missing.dcm': No such file or directory\n");
}

TEST_F(Dump, TellsWhatEachTrialOfAnUnreadableStreamMet)
{
    Write("short.dcm", Part10(kExplicitUid, kCutShort));
    const SRun run = Run("dump short.dcm");
    EXPECT_EQ(run.status, 20);
    EXPECT_EQ(run.out, "");
    const std::string end = std::to_string(Part10(kExplicitUid, kCutShort).size());
    EXPECT_EQ(run.err, "varnotix: short.dcm: not readable as DICOM\n"
                       "  explicit VR big endian: fault 2 at offset 138: "
                       "a tag that the dictionary lacks, or an unknown VR\n"
                       "  explicit VR little endian: fault 5 at offset " +
                           end + ": the stream ends inside a value\n");

    Write("empty.dcm", "");
    EXPECT_TRUE(Holds(Run("dump empty.dcm").err, "varnotix: empty.dcm: not readable as DICOM\n  explicit"));
    Write("bare.dcm", std::string(128, '\0') + "DICM");
    EXPECT_TRUE(Holds(Run("dump bare.dcm").err, "there are no elements in it"));
}

TEST_F(Dump, AFullDeviceIsAnOutputThatCannotBeWritten)
{
    if (!std::filesystem::exists("/dev/full"))
    {
        GTEST_SKIP() << "this system has no device that is always full";
    }
    Write("in.dcm", Part10(kExplicitUid, kPatient));
    for (const char* arguments : {"dump in.dcm", "convert -s big in.dcm -", "where", "--help"})
    {
        const SRun run = RunTo("/dev/full", arguments);
        EXPECT_EQ(run.status, 40) << arguments;
        EXPECT_TRUE(Holds(run.err, "cannot write to the standard output: No space left on device")) << arguments;
    }
    EXPECT_EQ(Run("convert -s big in.dcm /dev/full").status, 40);
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}
