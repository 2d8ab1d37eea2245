// Verbs over many inputs: files and folders, one after another and several at a time.
#include "ToolRunner.h"

class Inputs : public ToolTest
{
protected:
    static std::string Named(const std::string& name)
    {
        return Part10(kExplicitUid, Explicit(0x00080060, "CS", "MR") + Explicit(0x00100010, "PN", name));
    }

    /// Four objects, one of them without a preamble, and two files that are none.
    static void WriteFolder()
    {
        std::filesystem::create_directories("in/a b/c");
        Write("in/z.dcm", Named("Doe^Z "));
        Write("in/a b/-x.dcm", Named("Doe^X "));
        Write("in/a b/c/z.dcm", Named("Doe^CZ"));
        Write("in/bare", Explicit(0x00080060, "CS", "MR") + Explicit(0x00100010, "PN", "Doe^B "));
        Write("in/a b/readme.txt", "The quick brown fox jumps over the lazy dog.");
        Write("in/empty", "");
    }
};

TEST_F(Inputs, AFolderStandsForItsObjectsInOneOrder)
{
    WriteFolder();
    const char* skipped = "varnotix: 2 files in the folders are not DICOM, and were skipped\n";
    const SRun run = Expect(0, "dump -r in", skipped);
    EXPECT_EQ(run.err, skipped);
    EXPECT_TRUE(HoldsInOrder(run.out, "Doe^X", "Doe^CZ", "Doe^B", "Doe^Z"));
    EXPECT_EQ(Run("dump -j 3 -r in").out, run.out);
    Expect(20, "dump in", "cannot open 'in': it is a folder, whose files -r reads");
    std::filesystem::create_directories("none");
    Expect(20, "dump -r none", "there are no files in the folders");
    // A file that was named is not skipped.
    Expect(20, "dump in/empty in/z.dcm", "in/empty: not DICOM: it is empty");
}

TEST_F(Inputs, SeveralAtATimePrintAsOneAfterAnother)
{
    std::string names;
    for (int i = 0; i < 40; ++i)
    {
        const std::string name = std::to_string(i) + ".dcm";
        const bool isBad = i % 7 == 3;
        Write(name, isBad ? "this is not an object" : Named("Doe^" + std::to_string(100 + i)));
        names += " " + name;
    }
    const SRun one = Expect(20, "dump -v" + names, "6 of 40 inputs could not be read");
    for (const std::string jobs : {"-j 4 ", "-j 0 "})
    {
        const SRun many = Run("dump -v " + jobs + names);
        EXPECT_EQ(many.status, 20);
        EXPECT_EQ(many.out, one.out);
        EXPECT_EQ(many.err, one.err);
    }
    Expect(1, "dump -j -1 0.dcm", "--jobs");
    Expect(1, "dump -j 1.5 0.dcm", "--jobs");
}

TEST_F(Inputs, OutputsLieInTheFolderAsInputsInTheirs)
{
    WriteFolder();
    // The output folder lies in the input folder; what is written there is no input.
    Expect(40, "anonymize -j 2 -r -o in/out in in/z.dcm",
           "in/z.dcm: not written, because another input of the same name was written to in/out/z.dcm",
           "1 of 5 inputs were not anonymised", "2 files in the folders are not DICOM");
    for (const char* name : {"in/out/z.dcm", "in/out/a b/-x.dcm", "in/out/a b/c/z.dcm", "in/out/bare"})
    {
        EXPECT_EQ(TextsOf(name, {0x00100010}), "[ANONYMOUS]") << name;
    }
    EXPECT_FALSE(std::filesystem::exists("in/out/out"));
    EXPECT_FALSE(std::filesystem::exists("in/out/empty"));

    // A pattern may match one file as well as many.
    Expect(0, "anonymize -o one/ in/z.dcm");
    EXPECT_TRUE(std::filesystem::exists("one/z.dcm"));
    Write("file", "kept");
    Expect(1, "anonymize -o file in/z.dcm in/bare", "'file' is a file, and several inputs need a folder");
    Expect(1, "anonymize -r -o - in", "require a single FILE");
    EXPECT_EQ(Read("file"), "kept");
}

TEST_F(Inputs, TakesAnyNameAfterTwoDashes)
{
    Write("-v", Named("Doe^V "));
    EXPECT_TRUE(Holds(Expect(0, "dump -- -v").out, "Doe^V"));
}

#if !defined(_WIN32)

TEST_F(Inputs, TakesNamesBeyondAscii)
{
    const std::string name = "Bild \xC3\xA4 1.dcm"; // An a with an umlaut.
    Write(name, Named("Doe^U "));
    EXPECT_TRUE(Holds(Expect(0, "dump \"" + name + "\"").out, "Doe^U", "#SOURCE_FILE=" + name));
}

TEST_F(Inputs, PipesAndDevicesAreInputsAndOutputs)
{
    Write("in.dcm", Named("Doe^Pipe"));
    ASSERT_EQ(std::system("mkfifo pipe back"), 0);
    ASSERT_EQ(std::system("cat in.dcm >pipe &"), 0);
    EXPECT_TRUE(Holds(Expect(0, "dump pipe").out, "Doe^Pipe"));
    ASSERT_EQ(std::system("cat back >copy.dcm & echo $! >reader"), 0);
    Expect(0, "convert in.dcm back");
    ASSERT_EQ(std::system("while kill -0 $(cat reader) 2>/dev/null; do sleep 0.01; done"), 0);
    EXPECT_EQ(Read("copy.dcm"), Read("in.dcm"));
    Expect(0, "convert in.dcm /dev/null");
    Expect(20, "dump /dev/null", "/dev/null: not DICOM: it is empty");
}

TEST_F(Inputs, AClosedPipeEndsTheRunWithoutAMessage)
{
    std::string names;
    Write("in.dcm", Named("Doe^Jane"));
    for (int i = 0; i < 400; ++i)
    {
        names += " in.dcm";
    }
    for (const std::string jobs : {"", "-j 2"})
    {
        const std::string command =
            "{ \"$VARNOTIX_BIN\"/varnotix dump " + jobs + names + " 2>err.txt; echo $? >status; } | head -n 1 >out.txt";
        ASSERT_EQ(std::system(command.c_str()), 0);
        EXPECT_EQ(Read("status"), "141\n");
        EXPECT_EQ(Read("err.txt"), "");
    }
}

#endif
