// The script that runs the host over many files, where there is a shell for it.
#if !defined(_WIN32)

#include "ToolRunner.h"

class BatchTest : public ToolTest
{
protected:
    /// Runs the script, expects the status, and returns the standard output.
    static std::string Batch(int status, const std::string& arguments)
    {
        const std::string command = "VARNOTIX=\"$VARNOTIX_BIN\"/varnotix \"" + ProjectFolder().string() +
                                    "\"/scripts/batch.sh " + arguments + " >out.txt 2>err.txt";
        SCOPED_TRACE(arguments);
        EXPECT_EQ(std::system(command.c_str()) >> 8, status) << Read("err.txt");
        return Read("out.txt");
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
        Write("in/c/one.dcm", Part10(kExplicitUid, Explicit(0x00091001, "LO", "private ")));
    }
};

TEST_F(BatchTest, DoesAFolderAndThenWhatFailed)
{
    WriteArchive();
    const std::string command = "run -j 2 state in out anonymize --text X";
    EXPECT_EQ(Batch(20, command), "20 in/a b/bad.dcm\n");
    EXPECT_TRUE(Holds(Read("state/log/000000"), "in/a b/bad.dcm: not DICOM: it begins with 'this is '"));
    for (const char* name : {"out/one.dcm", "out/a b/one.dcm", "out/a b/-two.dcm", "out/c/one.dcm"})
    {
        EXPECT_NE(Read(name), "") << name;
        EXPECT_EQ(Read(name).find("Doe"), std::string::npos) << name;
    }
    EXPECT_FALSE(std::filesystem::exists("out/a b/bad.dcm"));

    Write("in/a b/bad.dcm", Named("Doe^Bad "));
    Write("out/one.dcm", "is not written again");
    EXPECT_EQ(Batch(10, command), "");
    EXPECT_NE(Read("out/a b/bad.dcm"), "");
    EXPECT_EQ(Read("out/one.dcm"), "is not written again");
    Batch(10, "finish state");
}

TEST_F(BatchTest, DoesTheChunksOfAListOneByOne)
{
    WriteArchive();
    Write("list", "in/one.dcm\nin/a b/one.dcm\nmissing.dcm\n./in/c/one.dcm\n");
    Batch(0, "split state list 2");
    Batch(0, "chunk state 0 out convert -s big");
    Batch(40, "finish state");
    EXPECT_TRUE(Holds(Read("err.txt"), "1 chunks are not done"));
    std::filesystem::create_directories("out/in");
    Write("out/in/c", "a file where a folder should be");
    Batch(40, "chunk state 1 out convert -s big");
    EXPECT_TRUE(Holds(Batch(40, "finish state"), "20 missing.dcm\n", "40 ./in/c/one.dcm\n"));
    CDcmIOD object;
    ReadObject("out/in/a b/one.dcm", object);
    EXPECT_EQ(object.IodSyntax(), SYNTAX_EXPLICIT_BIG);
}

#endif
