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
    /// The messages.
    static std::string AnonymizeOne(const std::string& file, const std::string& arguments = "", int status = 0)
    {
        Write("in.dcm", file);
        return Expect(status, "anonymize in.dcm -o out.dcm " + arguments).err;
    }
};

} // namespace

TEST_F(Anonymize, TheTextReplacesWhatIsThereAndAddsNothing)
{
    const std::string file = Part10(kExplicitUid, kModality + kName + kBirthDate);
    for (const std::string rules : {"", "--classic"})
    {
        EXPECT_EQ(AnonymizeOne(file, rules), "");
        const std::string date = rules.empty() ? "[]" : "[ANONYMOUS]"; // The text is not a date.
        EXPECT_EQ(TextsOf("out.dcm", {0x00100010, 0x00100030, 0x00100020, 0x00120062, 0x00080060}),
                  "[ANONYMOUS]" + date + "--[MR]");
    }
}

TEST_F(Anonymize, AnEmptyTextRemovesEveryElementOfATag)
{
    const std::string pixels = Encapsulated("", {"aabb", "cc"});
    Write("in.dcm", Part10(kRleUid, kModality + kName + kName + pixels));
    std::filesystem::create_directory("out");
    Expect(0, "anonymize --text=\"\" in.dcm -o out"); // The file's name is not the text.
    EXPECT_EQ(TextsOf("out/in.dcm", {0x00100010, 0x00020010}), "-[" + kRleUid + "]");
    EXPECT_EQ(Read("out/in.dcm").find("Doe"), std::string::npos);
    EXPECT_TRUE(Read("out/in.dcm").ends_with(pixels));
}

TEST_F(Anonymize, WhatStaysIsReported)
{
    const std::string burnedIn = Explicit(0x00280301, "CS", "YES ");
    EXPECT_TRUE(Holds(AnonymizeOne(Part10(kExplicitUid, kTalkative + burnedIn), "-q", 10),
                      "2 identifying attributes in sequence items; private groups 0009; (0028,0301)"));
    EXPECT_TRUE(Holds(AnonymizeOne(Part10(kExplicitUid, kTalkative), "-v --text X7", 10),
                      "(0010,0030) Patient's Birth Date: emptied",
                      "(0040,0275)>(0008,1120)>(0010,0010) Patient's Name"));
    EXPECT_EQ(TextsOf("out.dcm", {0x00100010}), "[X7]");
}

TEST_F(Anonymize, DeepLeavesNoTraceInItemsAndPrivateGroups)
{
    for (const std::string text : {"", "--text \"\""})
    {
        const std::string said = AnonymizeOne(Part10(kExplicitUid, kTalkative), "--deep " + text);
        EXPECT_EQ(said.find("not covered"), std::string::npos) << said;
        for (const char* trace : {"Doe", "19700101", "MAKER"})
        {
            EXPECT_EQ(Read("out.dcm").find(trace), std::string::npos) << trace;
        }
        EXPECT_EQ(TextsOf("out.dcm", {0x00120062, 0x00080060}), "[YES][MR]");
    }
}

TEST_F(Anonymize, DeepKeepsItemsThatLoseAllTheirAttributes)
{
    const std::string uid = Explicit(0x00081155, "UI", PaddedUid("1.2"));
    AnonymizeOne(Part10(kExplicitUid, Explicit(0x00081140, "SQ", Item(kName) + Item(uid + kName) + Item(""))),
                 "--deep --text \"\"");
    EXPECT_TRUE(Holds(Read("out.dcm"), Explicit(0x00081140, "SQ", Item("") + Item(uid) + Item(""))));
}

TEST_F(Anonymize, ThePreambleHoldsNoCopyOfABareDataSet)
{
    AnonymizeOne(kModality + kName + Explicit(0x00204000, "LT", std::string(200, 'x')));
    const std::string written = Read("out.dcm");
    EXPECT_EQ(written.substr(0, 132), std::string(128, '\0') + "DICM");
    EXPECT_EQ(written.find("Doe"), std::string::npos);
    EXPECT_EQ(TextsOf("out.dcm", {0x00020010}), "[" + kExplicitUid + "]");
}

TEST_F(Anonymize, ABatchGoesOnAfterAnInputThatIsNotReadable)
{
    Write("bad.dcm", "this is no DICOM object at all");
    Write("one.dcm", Part10(kExplicitUid, kName));
    std::filesystem::create_directory("other");
    Write("other/one.dcm", Part10(kExplicitUid, kName));
    Expect(40, "anonymize missing.dcm bad.dcm one.dcm other/one.dcm -o made/here", "bad.dcm: not DICOM: it begins with",
           "another input of the same name", "3 of 4 inputs were not anonymised");
    EXPECT_TRUE(Holds(Read("made/here/one.dcm"), "ANONYMOUS"));
    Expect(20, "anonymize bad.dcm one.dcm -o made");
}

TEST_F(Anonymize, ArgumentsThatCannotWorkAreRefused)
{
    Write("in.dcm", Part10(kExplicitUid, kName));
    Expect(1, "anonymize in.dcm in.dcm -o -");
    Expect(1, "anonymize in.dcm -o out.dcm --text \"a\\b\"");
    EXPECT_FALSE(std::filesystem::exists("out.dcm"));
}
