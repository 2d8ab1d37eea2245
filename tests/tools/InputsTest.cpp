// Verbs over many inputs: files and folders, one after another and several at a time.
#include "ToolRunner.h"

#if !defined(_WIN32)
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>
#endif

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
    Expect(0, "dump -v -r in", "in/empty: skipped, because it is not DICOM");
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

TEST_F(Inputs, AFileOfSeveralNamesIsWorkedOnOnceAtATime)
{
    std::string names;
    for (int i = 0; i < 8; ++i)
    {
        names += " in.dcm ./in.dcm";
    }
    const std::string object = Named("Doe^Jane");
    std::string edited;
    for (const std::string jobs : {"-j 1", "-j 8"})
    {
        Write("in.dcm", object);
        std::filesystem::remove("in.dcm.bak");
        Expect(0, "set " + jobs + " --backup RequestAttributesSequence[+].ScheduledProcedureStepID=7" + names);
        EXPECT_EQ(Read("in.dcm.bak"), object);
        edited = edited.empty() ? Read("in.dcm") : edited;
        EXPECT_EQ(Read("in.dcm"), edited);
    }
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
    Expect(40, "convert -o file/out/ in/z.dcm", "cannot make the folder 'file/out/'");
}

TEST_F(Inputs, VerbsWithOneOutputTakeManyToo)
{
    WriteFolder();
    Expect(0, "convert -r -s big in out");
    Expect(0, "convert -s big -o two/ in/z.dcm");
    EXPECT_EQ(Read("out/z.dcm"), Read("two/z.dcm"));
    Write("script", "0010,0010,PN,1,Patient's Name,[Doe^New,]\n");
    Expect(0, "apply script -r in -o new", "in/z.dcm: 1 value changed", "in/a b/-x.dcm: 1 value changed");
    EXPECT_EQ(TextsOf("new/a b/c/z.dcm", {0x00100010}), "[Doe^New]");
    EXPECT_TRUE(HoldsInOrder(Expect(0, "modules -r in").out, "file in/a b/-x.dcm\n", "Doe^X", "file in/bare\n"));
    Expect(1, "convert in/z.dcm in/bare in/z.dcm", "'in/z.dcm' is a file, and several inputs need a folder");
    Expect(1, "convert in/z.dcm", "the output is missing");
}

TEST_F(Inputs, TakesAnyNameAfterTwoDashes)
{
    Write("-v", Named("Doe^V "));
    EXPECT_TRUE(Holds(Expect(0, "dump -- -v").out, "Doe^V"));
    for (const char* name : {"[1]", "[a,b]", "++"})
    {
        Write(name, Named("Doe^V "));
    }
    EXPECT_TRUE(HoldsInOrder(Expect(0, "list --csv \"[1]\" ++ \"[a,b]\" -- -v").out, "\n[1],", "\n++,", "\n\"[a,b]\",",
                             "\n-v,"));
}

TEST_F(Inputs, TakesNamesBeyondAscii)
{
    const std::string name = "Bild \xC3\xA4 \xD0\xB6.dcm"; // An a with an umlaut, and a Cyrillic letter.
    Write(name, Named("Doe^U "));
    EXPECT_TRUE(Holds(Expect(0, "dump \"" + name + "\"").out, "Doe^U", "#SOURCE_FILE=" + name));
}

#if !defined(_WIN32)

TEST_F(Inputs, PipesAndDevicesAreInputsAndOutputs)
{
    Write("in.dcm", Named("Doe^Pipe"));
    ASSERT_EQ(std::system("mkfifo pipe back"), 0);
    ASSERT_EQ(std::system("timeout 60 cat in.dcm >pipe &"), 0);
    EXPECT_TRUE(Holds(Expect(0, "dump pipe").out, "Doe^Pipe"));
    ASSERT_EQ(std::system("timeout 60 cat back >copy.dcm & echo $! >reader"), 0);
    Expect(0, "convert in.dcm back");
    ASSERT_EQ(std::system("while kill -0 $(cat reader) 2>/dev/null; do sleep 0.01; done"), 0);
    EXPECT_EQ(Read("copy.dcm"), Read("in.dcm"));
    Expect(0, "convert in.dcm /dev/null");
    Write("both.dcm", "before");
    EXPECT_EQ(std::system("\"$VARNOTIX_BIN\"/varnotix convert in.dcm /dev/stdout >>both.dcm"), 0);
    EXPECT_EQ(Read("both.dcm"), "before" + Read("in.dcm"));
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

TEST_F(Inputs, MessagesToAClosedStreamDoNotGoIntoOutputs)
{
    std::string names;
    for (int i = 0; i < 150; ++i)
    {
        const std::string name = std::to_string(i) + ".dcm";
        Write(name, Named("Doe^Jane"));
        names += " " + name;
    }
    const std::string command = "\"$VARNOTIX_BIN\"/varnotix convert -v -s implicit -j 4 -o out" + names + " 2>&-";
    for (int round = 0; round < 2; ++round)
    {
        ASSERT_EQ(std::system(command.c_str()), 0);
        for (int i = 1; i < 150; ++i)
        {
            ASSERT_EQ(Read("out/" + std::to_string(i) + ".dcm"), Read("out/0.dcm")) << i;
        }
    }
    EXPECT_NE(std::system("\"$VARNOTIX_BIN\"/varnotix dump 0.dcm 2>err.txt >&-"), 0);
    EXPECT_TRUE(Holds(Read("err.txt"), "cannot write to the standard output: Bad file descriptor"));
}

TEST_F(Inputs, AnInterruptLeavesNoTemporaryFile)
{
    Write("in.dcm", Part10(kExplicitUid, Explicit(0x7FE00010, "OB", std::string(1 << 20, 'p'))));
    std::vector<std::string> arguments = {
        (FolderOf("VARNOTIX_BIN") / "varnotix").string(), "convert", "-q", "-o", "out", "-j", "1"};
    const std::size_t jobs = arguments.size() - 1;
    for (int i = 0; i < 2000; ++i)
    {
        const std::string name = "in" + std::to_string(i);
        std::filesystem::create_hard_link("in.dcm", name);
        arguments.push_back(name);
    }
    std::vector<char*> texts;
    for (std::string& argument : arguments)
    {
        texts.push_back(argument.data());
    }
    texts.push_back(nullptr);
    for (int round = 0; round < 20; ++round)
    {
        std::filesystem::remove_all("out");
        arguments[jobs][0] = round % 4 < 2 ? '1' : '4';
        const int signal = round % 2 == 0 ? SIGINT : SIGTERM;
        const pid_t child = fork();
        if (child == 0)
        {
            execv(texts[0], texts.data());
            _exit(127);
        }
        while (!std::filesystem::exists("out/in" + std::to_string(round)) && waitpid(child, nullptr, WNOHANG) == 0)
        {
        }
        kill(child, signal);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFSIGNALED(status));
        EXPECT_EQ(WTERMSIG(status), signal);
        EXPECT_EQ(CountTemporaries("out"), 0);
    }
    // Of whole outputs there are some, and none is cut off.
    for (const auto& entry : std::filesystem::directory_iterator("out"))
    {
        EXPECT_EQ(entry.file_size(), std::filesystem::file_size("in.dcm"));
    }
}

#endif
