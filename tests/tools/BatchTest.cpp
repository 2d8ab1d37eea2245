// The script that runs the host over many files, where there is a shell for it.
#if !defined(_WIN32)

#include "ToolRunner.h"

class Batch : public ToolTest
{
protected:
    static SRun RunBatch(const std::string& arguments)
    {
        const std::string command = "VARNOTIX=\"$VARNOTIX_BIN\"/varnotix \"" + ProjectFolder().string() +
                                    "\"/scripts/batch.sh " + arguments + " >out.txt 2>err.txt";
        const int status = std::system(command.c_str());
        return {status >> 8, Read("out.txt"), Read("err.txt")};
    }

    static std::string Named(const std::string& name) { return Part10(kExplicitUid, Explicit(0x00100010, "PN", name)); }

    /// Five files in three folders, one of them no object.
    static void WriteArchive()
    {
        std::filesystem::create_directories("in/a b");
        std::filesystem::create_directories("in/c");
        Write("in/one.dcm", Named("Doe^One "));
        Write("in/a b/one.dcm", Named("Doe^Two "));
        Write("in/a b/-two.dcm", Named("Doe^Four"));
        Write("in/a b/bad.dcm", "this is no DICOM object at all");
        Write("in/c/one.dcm", Named("Doe^Five"));
    }
};

TEST_F(Batch, DoesAFolderAndThenWhatFailed)
{
    WriteArchive();
    const std::string command = "run -j 2 state in out anonymize --text X";
    const SRun first = RunBatch(command);
    EXPECT_EQ(first.status, 20) << first.err;
    EXPECT_EQ(first.out, "20 in/a b/bad.dcm\n");
    EXPECT_TRUE(Holds(Read("state/log/000000"), "in/a b/bad.dcm: not readable as DICOM"));
    for (const char* name : {"out/one.dcm", "out/a b/one.dcm", "out/a b/-two.dcm", "out/c/one.dcm"})
    {
        EXPECT_NE(Read(name), "") << name;
        EXPECT_EQ(Read(name).find("Doe"), std::string::npos) << name;
    }
    EXPECT_FALSE(std::filesystem::exists("out/a b/bad.dcm"));

    Write("in/a b/bad.dcm", Named("Doe^Bad "));
    Write("out/one.dcm", "is not written again");
    const SRun second = RunBatch(command);
    EXPECT_EQ(second.status, 0) << second.err;
    EXPECT_EQ(second.out, "");
    EXPECT_NE(Read("out/a b/bad.dcm"), "");
    EXPECT_EQ(Read("out/one.dcm"), "is not written again");
    EXPECT_EQ(RunBatch("finish state").status, 0);
}

TEST_F(Batch, DoesTheChunksOfAListOneByOne)
{
    WriteArchive();
    Write("list", "in/one.dcm\nin/a b/one.dcm\nmissing.dcm\n./in/c/one.dcm\n");
    ASSERT_EQ(RunBatch("split state list 2").status, 0);
    EXPECT_EQ(RunBatch("chunk state 0 out convert -s big").status, 0);
    EXPECT_EQ(RunBatch("finish state").status, 40);
    EXPECT_TRUE(Holds(Read("err.txt"), "1 chunks are not done"));
    std::filesystem::create_directories("out/in");
    Write("out/in/c", "a file where a folder should be");
    EXPECT_EQ(RunBatch("chunk state 1 out convert -s big").status, 40);
    const SRun ended = RunBatch("finish state");
    EXPECT_EQ(ended.status, 40);
    EXPECT_TRUE(Holds(ended.out, "20 missing.dcm\n"));
    EXPECT_TRUE(Holds(ended.out, "40 ./in/c/one.dcm\n"));
    CDcmIOD object;
    ReadObject("out/in/a b/one.dcm", object);
    EXPECT_EQ(object.IodSyntax(), SYNTAX_EXPLICIT_BIG);
}

TEST_F(Batch, RefusesWhatCannotWork)
{
    WriteArchive();
    EXPECT_EQ(RunBatch("run state in out convert --syntax none").status, 1);
    EXPECT_EQ(RunBatch("run other in in convert -s big").status, 1);
    EXPECT_TRUE(Holds(Read("err.txt"), "INPUT and OUT are one folder"));
    EXPECT_EQ(RunBatch("run state in out dump").status, 1);
    EXPECT_EQ(RunBatch("run state missing out convert -s big").status, 1);
    EXPECT_EQ(RunBatch("chunk state 7 out convert -s big").status, 1);
    EXPECT_EQ(RunBatch("run").status, 1);
    Write("list", "in/../in/one.dcm\n");
    EXPECT_EQ(RunBatch("split new list").status, 1);
    EXPECT_FALSE(std::filesystem::exists("out/one.dcm"));
}

#endif
