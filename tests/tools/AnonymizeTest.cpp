#include "ToolRunner.h"

namespace
{

const std::string kName = Explicit(0x00100010, "PN", "Doe^Jane");
const std::string kBirthDate = Explicit(0x00100030, "DA", "19700101");
const std::string kModality = Explicit(0x00080060, "CS", "MR");
const std::string kPrivate = Explicit(0x00091001, "LO", "Jane Doe");

/// An object that names its patient wherever it can.
const std::string kTalkative = kModality + Explicit(0x00081110, "SQ", Item(kName)) +
                               Explicit(0x00090010, "LO", "MAKER ") + kPrivate + kName + kBirthDate +
                               Explicit(0x00400275, "SQ", Item(Explicit(0x00081120, "SQ", Item(kName)))) +
                               Explicit(0x00400275, "SQ", Item(kPrivate));

class Anonymize : public ToolTest
{
protected:
    SRun AnonymizeOne(const std::string& file, const std::string& arguments = "")
    {
        Write("in.dcm", file);
        return Run("anonymize in.dcm -o out.dcm " + arguments);
    }

    /// A value of the output as text; "(absent)" without the element.
    static std::string Value(int group, int element)
    {
        CDcmIOD object;
        ReadObject("out.dcm", object);
        return TextOf(object, group, element);
    }
};

} // namespace

TEST_F(Anonymize, TheTextReplacesWhatIsThereAndAddsNothing)
{
    const SRun run = AnonymizeOne(Part10(kExplicitUid, kModality + kName + kBirthDate));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(Value(0x0010, 0x0010), "ANONYMOUS");
    EXPECT_EQ(Value(0x0010, 0x0030), "ANONYMOUS");
    EXPECT_EQ(Value(0x0010, 0x0020), "(absent)");
    EXPECT_EQ(Value(0x0012, 0x0062), "(absent)");
    EXPECT_EQ(Value(0x0008, 0x0060), "MR");

    AnonymizeOne(Part10(kExplicitUid, kName), "--text X7");
    EXPECT_EQ(Value(0x0010, 0x0010), "X7");
}

TEST_F(Anonymize, AnEmptyTextRemovesEveryElementOfATag)
{
    EXPECT_EQ(AnonymizeOne(Part10(kExplicitUid, kModality + kName + kName), "--text \"\"").status, 0);
    EXPECT_EQ(Value(0x0010, 0x0010), "(absent)");
    EXPECT_EQ(Read("out.dcm").find("Doe"), std::string::npos);

    std::filesystem::create_directory("out");
    EXPECT_EQ(Run("anonymize --text=\"\" in.dcm -o out").status, 0) << "the file's name is not the text";
    EXPECT_EQ(Read("out/in.dcm").find("Doe"), std::string::npos);
}

TEST_F(Anonymize, WhatStaysIsTold)
{
    const std::string burnedIn = Explicit(0x00280301, "CS", "YES ");
    const SRun run = AnonymizeOne(Part10(kExplicitUid, kTalkative + burnedIn));
    EXPECT_TRUE(Holds(run.err, "2 identifying attributes in sequence items; private groups 0009; (0028,0301)"));
    EXPECT_NE(Read("out.dcm").find("Doe^Jane"), std::string::npos);

    const SRun detailed = AnonymizeOne(Part10(kExplicitUid, kTalkative), "-v");
    EXPECT_TRUE(Holds(detailed.err, "(0040,0275)>(0008,1120)>(0010,0010) Patient's Name"));
    EXPECT_TRUE(
        Holds(detailed.err, "(0010,0030) Patient's Birth Date: replaced, though the text is no value of VR DA"));
}

TEST_F(Anonymize, DeepLeavesNoTraceInItemsAndPrivateGroups)
{
    for (const std::string text : {"", "--text \"\""})
    {
        const SRun run = AnonymizeOne(Part10(kExplicitUid, kTalkative), "--deep " + text);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err.find("not covered"), std::string::npos) << run.err;
        const std::string written = Read("out.dcm");
        EXPECT_EQ(written.find("Doe"), std::string::npos);
        EXPECT_EQ(written.find("19700101"), std::string::npos);
        EXPECT_EQ(written.find("MAKER"), std::string::npos);
        EXPECT_EQ(Value(0x0012, 0x0062), "YES");
        EXPECT_EQ(Value(0x0008, 0x0060), "MR");
    }
}

TEST_F(Anonymize, ThePreambleHoldsNoCopyOfABareDataSet)
{
    const std::string dataSet = kModality + kName;
    EXPECT_EQ(AnonymizeOne(dataSet + Explicit(0x00204000, "LT", std::string(200, 'x'))).status, 0);
    const std::string written = Read("out.dcm");
    EXPECT_EQ(written.substr(0, 132), std::string(128, '\0') + "DICM");
    EXPECT_EQ(written.find("Doe"), std::string::npos);
    EXPECT_EQ(Value(0x0002, 0x0010), kExplicitUid);
}

TEST_F(Anonymize, CompressedPixelDataKeepsItsSyntaxAndBytes)
{
    const std::string pixels = Encapsulated("", {"aabb", "cc"});
    AnonymizeOne(Part10(kRleUid, kName + pixels));
    EXPECT_EQ(Value(0x0002, 0x0010), kRleUid);
    EXPECT_TRUE(Read("out.dcm").ends_with(pixels));
}

TEST_F(Anonymize, ABatchGoesOnAfterAnInputThatIsNotReadable)
{
    Write("bad.dcm", "this is no DICOM object at all");
    Write("one.dcm", Part10(kExplicitUid, kName));
    std::filesystem::create_directory("other");
    Write("other/one.dcm", Part10(kExplicitUid, kName));
    const SRun run = Run("anonymize missing.dcm bad.dcm one.dcm other/one.dcm -o made/here");
    EXPECT_EQ(run.status, 40);
    EXPECT_TRUE(Holds(run.err, "bad.dcm: not readable as DICOM"));
    EXPECT_TRUE(Holds(run.err, "another input of that name"));
    EXPECT_TRUE(Holds(run.err, "3 of 4 inputs were not anonymised"));
    EXPECT_NE(Read("made/here/one.dcm").find("ANONYMOUS"), std::string::npos);
    EXPECT_EQ(Run("anonymize bad.dcm one.dcm -o made").status, 20);
}

TEST_F(Anonymize, ArgumentsThatCannotWorkAreRefused)
{
    Write("in.dcm", Part10(kExplicitUid, kName));
    EXPECT_EQ(Run("anonymize in.dcm in.dcm -o -").status, 1);
    EXPECT_EQ(Run("anonymize in.dcm").status, 1);
    EXPECT_EQ(Run("anonymize in.dcm -o out.dcm --text \"a\\b\"").status, 1);
    EXPECT_FALSE(std::filesystem::exists("out.dcm"));
    EXPECT_EQ(CountTemporaries(), 0);
}
