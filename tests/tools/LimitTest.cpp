// A disk that fills, a reader that fails, a small stack: what the host does when the system has no more to give. The
// limits are set by the shell of systems that have them.
#if !defined(_WIN32)

#include "ToolRunner.h"

namespace
{

using Limit = ToolTest;

/// Sequences as deep as a read follows them, and pixel data that is larger than the limit of a file.
std::string DeepAndLarge()
{
    std::string nested = Explicit(0x00100010, "PN", "DOE^JANE");
    for (int depth = 0; depth < CDcmParser::kMaxDepth; ++depth)
    {
        nested = Explicit(0x00081140, "SQ", Item(nested));
    }
    return Part10(kExplicitUid, nested + Explicit(0x00100010, "PN", "DOE^JANE") + Us(0x00280010, 100) +
                                    Us(0x00280011, 1000) + Us(0x00280100, 8) +
                                    Explicit(0x7FE00010, "OW", std::string(100000, 'p')));
}

} // namespace

TEST_F(Limit, ADiskThatFillsKeepsTheOldOutputAndLeavesNothingElse)
{
    constexpr const char* kLimit = "ulimit -f 40"; // Blocks of 512 bytes or 1 KiB, as the shell counts.
    Write("in.dcm", DeepAndLarge());
    Write("out.dcm", "old");
    std::filesystem::create_directory("folder");
    Write("folder/in.dcm", "old");
    for (const char* arguments : {"convert -s big in.dcm out.dcm", "anonymize in.dcm -o out.dcm",
                                  "anonymize --deep in.dcm -o folder", "frames in.dcm -o frames"})
    {
        const SRun run = Run(arguments, "out.txt", kLimit);
        EXPECT_EQ(run.status, 40) << arguments;
        EXPECT_TRUE(Holds(run.err, "varnotix: cannot write '", "': No space left on device\n")) << arguments;
    }
    EXPECT_EQ(Read("out.dcm"), "old");
    EXPECT_EQ(Read("folder/in.dcm"), "old");
    EXPECT_EQ(CountTemporaries(), 0);
    EXPECT_EQ(CountTemporaries("folder"), 0);
    EXPECT_TRUE(std::filesystem::is_empty("frames"));

    const SRun streamed = Run("convert -q -s big in.dcm -", "stream.dcm", kLimit);
    EXPECT_EQ(streamed.status, 40);
    EXPECT_TRUE(Holds(streamed.err, "varnotix: cannot write to the standard output: "));
}

TEST_F(Limit, AFileBeyondTheLargestIsListedAndOtherwiseRefused)
{
    Write("in.dcm", DeepAndLarge());
    std::filesystem::resize_file("in.dcm", std::uintmax_t{5} << 30U); // Almost all of it a hole.
    EXPECT_TRUE(Holds(Expect(0, "list in.dcm").out, "DOE^JANE"));
    Expect(20, "dump in.dcm", "in.dcm: files of 2 GiB and more are not read");
    std::filesystem::remove("in.dcm");
}

TEST_F(Limit, AReaderThatFailsIsAnInputThatCannotBeRead)
{
    Write("out.dcm", "old");
    for (const char* arguments : {"convert -s big - out.dcm <.", "anonymize - -o out.dcm <.", "dump - <.",
                                  "modules - <.", "frames - -o frames <.", "pdu <."})
    {
        Expect(20, arguments, "cannot read 'standard input': Input/output error");
    }
    EXPECT_EQ(Read("out.dcm"), "old");
    EXPECT_EQ(CountTemporaries(), 0);
}

TEST_F(Limit, ARunGoesOnWithoutTheThreadsThatTheSystemRefuses)
{
    constexpr const char* kLimit = "ulimit -s 200000000000"; // Threads get stacks of more than there are addresses.
    if (std::system(kLimit) != 0)
    {
        GTEST_SKIP() << "the limit of stacks cannot be raised";
    }
    Write("in.dcm", DeepAndLarge());
    Write("bad.dcm", "no object");
    const std::string arguments = "dump -v -j 4 in.dcm bad.dcm in.dcm";
    const SRun usual = Run(arguments);
    const SRun refused = Run(arguments, "out.txt", kLimit);
    EXPECT_EQ(refused.status, usual.status);
    EXPECT_EQ(refused.out, usual.out);
    EXPECT_EQ(refused.err, usual.err);
}

TEST_F(Limit, AStackOfOneMegabyteIsEnoughForTheDeepestNesting)
{
    Write("in.dcm", DeepAndLarge());
    for (const char* arguments : {"dump in.dcm", "modules --gaps in.dcm", "convert -v -s big in.dcm out.dcm",
                                  "anonymize -v --deep in.dcm -o deep.dcm", "frames in.dcm -o frames"})
    {
        const SRun run = Run(arguments, "out.txt", "ulimit -s 1024");
        EXPECT_EQ(run.status, 0) << arguments << '\n' << run.err;
    }
    CDcmIOD object;
    ReadObject("deep.dcm", object);
    EXPECT_EQ(Read("deep.dcm").find("DOE"), std::string::npos);
    EXPECT_GT(object.GetCountAll(), CDcmParser::kMaxDepth);
}

#endif
