#include "ToolRunner.h"

#include <map>
#include <set>
#include <sstream>

using namespace std::string_literals;

namespace
{

const std::string kMr = "1.2.840.10008.5.1.4.1.1.4";
const std::string kUltrasound = "1.2.840.10008.5.1.4.1.1.6.1";
const std::string kDocument = "1.2.840.10008.5.1.4.1.1.104.1";

std::string Uid(unsigned long tag, const std::string& uid)
{
    return Explicit(tag, "UI", PaddedUid(uid));
}

/// What the objects of these tests differ in.
struct SObject
{
    std::string id = "4711";
    std::string series = "1.2.3.4";
    std::string instance = "1.2.3.4.1";
    std::string reference = "1.2.3.4.2";
    std::string sopClass = kMr;
};

/// A data set that refers to another object, at the top and deep in items.
std::string DataSet(const SObject& of, const std::string& more = "")
{
    const std::string reference = Uid(0x00081155, of.reference);
    const std::string deep = Explicit(0x00081199, "SQ", Item(reference));
    return Uid(0x00080016, of.sopClass) + Uid(0x00080018, of.instance) + Explicit(0x00080020, "DA", "20240301") +
           Explicit(0x00081115, "SQ", Item(deep)) + Explicit(0x00081140, "SQ", Item(reference)) +
           Explicit(0x00100010, "PN", "Doe^Jane") + Explicit(0x00100020, "LO", of.id) + Uid(0x0020000D, "1.2.3") +
           Uid(0x0020000E, of.series) + more;
}

std::string File(const SObject& of, const std::string& more = "")
{
    return Part10(kExplicitUid, DataSet(of, more));
}

class Deidentify : public ToolTest
{
protected:
    /// The files of a folder, at every depth, in order.
    static std::vector<std::string> FilesIn(const std::string& folder)
    {
        std::set<std::string> names;
        if (std::filesystem::exists(folder))
        {
            for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
            {
                names.insert(entry.is_regular_file() ? entry.path().generic_string() : "");
            }
        }
        names.erase("");
        return {names.begin(), names.end()};
    }

    /// De-identifies one file.
    /// @return the bytes of the output; empty when there is none.
    std::string Output(const std::string& file, const std::string& arguments = "", int status = 0)
    {
        Write("in.dcm", file);
        std::filesystem::remove_all("out");
        m_run = Expect(status, "deidentify in.dcm -o out " + arguments);
        const std::vector<std::string> files = FilesIn("out");
        m_output = files.empty() ? "" : files.front();
        return files.empty() ? "" : Read(m_output);
    }

    /// The text of an attribute at a path; "-" where there is none.
    static std::string At(const std::string& name, const char* path)
    {
        CDcmIOD object;
        ReadByStandard(name, object);
        const CDcmElement* found = Varnotix::CElementPath::Parse(path)->Find(object.ElementStore());
        CString text = found != nullptr ? CString(found->JoinedText().CText()) : CString("-");
        text.TrimRight();
        return std::string(text.View());
    }

    SRun m_run;
    std::string m_output;
};

} // namespace

TEST_F(Deidentify, OneKeyGivesOneSetOfNewNames)
{
    std::filesystem::create_directories("in/deep");
    Write("in/a.dcm", File({}));
    Write("in/deep/b.dcm", File({.series = "1.2.3.5", .instance = "1.2.3.4.2", .reference = "1.2.3.4.1"}));
    Write("in/c.dcm", File({.id = "0815", .series = "1.2.3.6", .instance = "1.2.3.6.1", .reference = kMr}));
    Write("in/readme.txt", "not an object");
    Expect(0, "deidentify in -o one --key key.txt --retain-dates modified -j 3", "a new key is in key.txt");
#if !defined(_WIN32)
    EXPECT_EQ(std::filesystem::status("key.txt").permissions(), std::filesystem::perms(0600));
#endif
    EXPECT_EQ(FilesIn(".").size(), 10U); // Nothing temporary is beside it.
    const SRun again = Expect(0, "deidentify in -o two --key key.txt --retain-dates modified");
    EXPECT_TRUE(Holds(again.err, "1 file in the folders is not DICOM"));
    Expect(0, "deidentify in -o three --key other.txt --retain-dates modified");
    EXPECT_EQ(Run("deidentify in -o four").status, 0);

    const std::vector<std::string> files = FilesIn("one");
    ASSERT_EQ(files.size(), 3U);
    std::map<std::string, std::string> references;
    std::map<std::string, std::set<std::string>> dates;
    std::set<std::string> studies;
    for (const std::string& name : files)
    {
        const std::string twin = "two" + name.substr(3);
        ASSERT_TRUE(std::filesystem::exists(twin)) << twin;
        EXPECT_EQ(Read(name), Read(twin));
        const std::string instance = At(name, "SOPInstanceUID");
        EXPECT_EQ(At(name, "0002,0003"), instance);
        EXPECT_TRUE(name.ends_with("/" + At(name, "PatientID") + "/" + At(name, "StudyInstanceUID") + "/" +
                                   At(name, "SeriesInstanceUID") + "/" + instance + ".dcm"));
        references[instance] = At(name, "00081115[1].00081199[1].00081155");
        EXPECT_EQ(At(name, "ReferencedImageSequence"), "-"); // X/Z/U*, and of type 3 in MR images.
        dates[At(name, "PatientID")].insert(At(name, "StudyDate"));
        studies.insert(At(name, "StudyInstanceUID"));
        EXPECT_EQ(At(name, "LongitudinalTemporalInformationModified"), "MODIFIED");
        for (const std::string other : {"three", "four"})
        {
            for (const std::string& unlike : FilesIn(other))
            {
                EXPECT_NE(At(unlike, "SOPInstanceUID"), instance);
                EXPECT_NE(At(unlike, "PatientID"), At(name, "PatientID"));
            }
        }
    }
    EXPECT_EQ(studies.size(), 1U);
    // Two of the three objects refer to each other; the third names a class, which is no object.
    EXPECT_EQ(std::count_if(references.begin(), references.end(),
                            [&](const auto& of)
                            { return references.contains(of.second) && references[of.second] == of.first; }),
              2);
    ASSERT_EQ(dates.size(), 2U);
    EXPECT_EQ(dates.begin()->second.size(), 1U);
    EXPECT_NE(dates.begin()->second, dates.rbegin()->second);
    EXPECT_FALSE(dates.begin()->second.contains("20240301"));
}

TEST_F(Deidentify, NothingOfThePatientIsLeftAnywhere)
{
    const std::string name = Explicit(0x00100010, "PN", "Secret^Name ");
    std::string file =
        File({.id = "SecretID"},
             name + Explicit(0x00104000, "LT", "Secret comment") +
                 Explicit(0x00400260, "UN", Item(Implicit(0x00100010, "Secret"))) + // Hidden items.
                 Explicit(0x00400275, "SQ", Item(Explicit(0x00081120, "SQ", Item(name)))) +
                 Explicit(0x00290010, "LO", "Secret") + Explicit(0x00291001, "UN", "Secret") +
                 Explicit(0x00431234, "UN", "Secret") + Explicit(0x0018FFF1, "LO", "Secret") +
                 Explicit(0x50003000, "OW", "Secret") + Us(0x60000010, 16) + Explicit(0x60003000, "OW", "Secret") +
                 Explicit(0xFFFCFFFC, "OB", "Secret") +
                 // A person whom the table does not list, a sequence whose items cannot be read,
                 // and an item with elements of meta information and directories.
                 Explicit(0x0040A067, "PN", "Secret^A") + Explicit(0x00400260, "OB", "Secret") +
                 Explicit(0x00081110, "SQ",
                          Item(Explicit(0x00020016, "AE", "Secret") + Explicit(0x00041500, "CS", "Secret"))));
    std::copy_n("Secret", 6, file.begin());
    const std::string output = Output(file, "--report r.json -v");
    EXPECT_FALSE(output.empty());
    EXPECT_EQ(output.find("Secret"), std::string::npos);
    EXPECT_EQ(output.find("Jane"), std::string::npos);
    EXPECT_EQ(output.find("1.2.3"), std::string::npos);
    EXPECT_EQ(Read("r.json").find("Secret"), std::string::npos);
    EXPECT_EQ(m_run.err.find("Secret"), std::string::npos);
    EXPECT_TRUE(Holds(Read("r.json"), R"("state":"written")", R"("PatientComments":1)", R"x("(0029,1001)":1)x"));
    EXPECT_EQ(At(m_output, "PatientIdentityRemoved"), "YES");
    EXPECT_EQ(At(m_output, "DeidentificationMethodCodeSequence[1].CodeValue"), "113100");
    EXPECT_EQ(At(m_output, "DeidentificationMethodCodeSequence[2]"), "-");
    EXPECT_EQ(At(m_output, "LongitudinalTemporalInformationModified"), "REMOVED");
    EXPECT_EQ(At(m_output, "60000010"), "-"); // An overlay without data would not be valid.
    // The type of the attribute in MR images decides.
    EXPECT_EQ(At(m_output, "StudyDate"), "");
    EXPECT_EQ(At(m_output, "SOPClassUID"), kMr);
}

TEST_F(Deidentify, WhatAPersonHasToReadGivesAStatus)
{
    const std::string texts = Explicit(0x0008103E, "LO", "Head of Jane, 0301234567, j@x.org ");
    Output(File({}, texts), "--clean-descriptors", 10);
    EXPECT_EQ(At(m_output, "SeriesDescription"), "Head of ****, **********, *******");
    EXPECT_TRUE(Holds(m_run.err, "cleaned of known texts only, read: SeriesDescription"));
    EXPECT_EQ(At(m_output, "DeidentificationMethodCodeSequence[2].CodeValue"), "113105");
    // Case does not matter beyond ASCII either, nor that codes of two bytes have backslashes and separators in them.
    const std::string latin = Explicit(0x00080005, "CS", "ISO_IR 100") + Explicit(0x00101001, "PN", "M\xDCLLER^J");
    Output(File({}, latin + Explicit(0x0008103E, "LO", "Frau M\xFCller, M\xFCllerin")), "--clean-descriptors", 10);
    EXPECT_EQ(At(m_output, "SeriesDescription"), "Frau ******, M\xFCllerin");
    const std::string name87 = "\x1B$B@\\;3\x1B(B"; // Two kanji, with a backslash among their codes.
    const std::string japan =
        Explicit(0x00080005, "CS", "\\ISO 2022 IR 87 ") + Explicit(0x00101001, "PN", name87 + "^A ");
    Output(File({}, japan + Explicit(0x0008103E, "LO", "for" + name87)), "--clean-descriptors", 10);
    EXPECT_EQ(At(m_output, "SeriesDescription"), "for**");
    // The codes of content items keep their long numbers, which say what the items are.
    const std::string code = Explicit(0x00080100, "SH", "121071") + Explicit(0x00080104, "LO", "For Jane");
    const std::string content =
        Explicit(0x0040A043, "SQ", Item(code)) + Explicit(0x0040A160, "UT", "No 121071 of Jane ");
    Output(File({}, Explicit(0x0040A730, "SQ", Item(content))), "--clean-structured-content", 10);
    EXPECT_EQ(At(m_output, "ContentSequence[1].ConceptNameCodeSequence[1].CodeValue"), "121071");
    EXPECT_EQ(At(m_output, "ContentSequence[1].ConceptNameCodeSequence[1].CodeMeaning"), "For ****");
    EXPECT_EQ(At(m_output, "ContentSequence[1].TextValue"), "No ****** of ****");
    // A name in an attribute that nobody expects it in.
    Output(File({}, Explicit(0x00181020, "LO", "for Jane Doe")), "", 10);
    EXPECT_TRUE(Holds(m_run.err, "has texts that were removed elsewhere in the object: SoftwareVersions"));
    // All of them are named: old UIDs in addresses, names of three letters, in scripts without blanks, in long texts.
    const std::string name = "\xE5\xB1\xB1\xE7\x94\xB0";
    const std::string url = Explicit(0x00081190, "UT", "http://x/?studyUID=1.2.3.4.1");
    const std::string model = Explicit(0x00081090, "LO", "of Mrs Doe");
    const std::string label = Explicit(0x00181020, "LO", "x" + name + "y ");
    const std::string profile = Explicit(0x00282000, "OB", std::string(70000, 'x') + " 4711");
    Output(File({}, url + model + label + profile + Explicit(0x00101001, "PN", name)), "", 10);
    EXPECT_TRUE(Holds(m_run.err, "object: ManufacturerModelName RetrieveURL SoftwareVersions ICCProfile"));
    Output(File({}, Explicit(0x00080080, "LO", "Doe's Clinic")), "--retain-institution", 10);
    EXPECT_TRUE(Holds(m_run.err, "object: InstitutionName"));
    Output(File({}, Explicit(0x60003000, "OW", "ab") + Explicit(0x60001500, "LO", "Jane")), "--clean-graphics", 10);
    EXPECT_EQ(At(m_output, "60001500"), "****");
    // So are kept documents and the comments of compressed frames.
    Output(File({.sopClass = kDocument}, Explicit(0x00420011, "OB", "<name>Jane</name> ")), "--accept-pixels", 10);
    EXPECT_TRUE(Holds(m_run.err, "EncapsulatedDocument"));
    for (const auto& [syntax, frame] : {std::pair("1.2.840.10008.1.2.4.50", "\xFF\xD8\xFF\xFE\0\6Jane\xFF\xDA"s),
                                        std::pair("1.2.840.10008.1.2.4.90", "\xFF\x4F\xFF\x64\0\6Jane\xFF\x90"s)})
    {
        Output(Part10(syntax, DataSet({}) + Encapsulated("", {frame})), "", 10);
        EXPECT_TRUE(Holds(m_run.err, "PixelData"));
    }
}

TEST_F(Deidentify, WhatNoTableListsFollowsTheOptions)
{
    const std::string block = Explicit(0x00190010, "LO", "ACME") + Explicit(0x00191001, "DA", "20240301") +
                              Uid(0x00191002, "1.2.3.4.1") + Explicit(0x00191003, "DA", "unknown ");
    const std::string dates = Explicit(0x00080201, "SH", "-0330 ") +
                              Explicit(0x0008002A, "DT", "20240229-20240301 ") + // A range, which no object has.
                              Explicit(0x00140102, "DA", "20240301") + Explicit(0x00141020, "DA", "unknown ");
    Write("safe.txt", "(0019,\"ACME\",01)\n(0019,\"ACME\",02)\n(0019,\"ACME\",03)\n");
    const std::string moved = Output(File({}, dates + block), "--retain-safe-private safe.txt --retain-dates modified");
    EXPECT_EQ(moved.find("20240301"), std::string::npos);
    EXPECT_EQ(moved.find("unknown"), std::string::npos);
    EXPECT_EQ(At(m_output, "StudyDate"), At(m_output, "SecondaryReviewDate"));
    EXPECT_EQ(At(m_output, "StudyDate"), At(m_output, "00191001"));
    EXPECT_EQ(At(m_output, "SOPInstanceUID"), At(m_output, "00191002"));
    Output(File({}, dates + block), "--retain-safe-private safe.txt --retain-uids");
    EXPECT_EQ(At(m_output, "00191001") + At(m_output, "00191002"), "202403011.2.3.4.1");
    // What an earlier run stated stays true.
    Output(Read(m_output), "--retain-dates modified");
    Output(Read(m_output), "--retain-dates full");
    EXPECT_EQ(At(m_output, "LongitudinalTemporalInformationModified"), "REMOVED");
    Output(moved, "--retain-dates full");
    EXPECT_EQ(At(m_output, "LongitudinalTemporalInformationModified"), "MODIFIED");
    std::string codes;
    for (const char* path : {"00120064[1].00080100", "00120064[2].00080100", "00120064[3].00080100",
                             "00120064[4].00080100", "00120064[5]"})
    {
        codes += At(m_output, path) + " ";
    }
    EXPECT_EQ(codes, "113100 113107 113111 113106 - ");
    EXPECT_EQ(At(m_output, "DeidentificationMethod"), "Varnotix, PS3.15 Annex E, table of 2025");
    // Where there is no study there is no patient.
    Output(Part10(kExplicitUid, Uid(0x00080016, "1.2.840.10008.5.1.4.39.1") + Uid(0x00080018, "1.2.3.4.1")));
    EXPECT_EQ(At(m_output, "PatientID"), "-");
}

TEST_F(Deidentify, PatientsOfAListGetItsNames)
{
    Write("map.csv", "# old,new,name\n4711,T-1,\"Trial^One, first\"\n");
    Output(File({}), "--id-map map.csv");
    EXPECT_EQ(At(m_output, "PatientID") + At(m_output, "PatientName"), "T-1Trial^One, first");
    EXPECT_TRUE(m_output.starts_with("out/T-1/"));
    EXPECT_EQ(Output(File({.id = "0815"}), "--id-map map.csv --report r.json", 20), "");
    EXPECT_TRUE(Holds(m_run.err, "refused: its patient is not in the list"));
    EXPECT_TRUE(Holds(Read("r.json"), R"("state":"refused")"));
    for (const std::string wrong : {"4711,T-1", "4711,,x", "4711,a\\b,x", "4711,T,x\n4711,U,y", "4711,T,\"x"})
    {
        Write("map.csv", wrong + "\n");
        Expect(1, "deidentify in.dcm -o out --id-map map.csv", "map.csv:", "old ID,new ID,new name");
    }
}

TEST_F(Deidentify, ObjectsThatMayShowThePatientAreRefused)
{
    const std::pair<std::string, std::string> risks[] = {
        {File({.sopClass = kUltrasound}), "Ultrasound Image Storage"},
        {File({.sopClass = kDocument}, Explicit(0x00420011, "OB", "%PDF")), "Encapsulated PDF"},
        {File({}, Explicit(0x00280301, "CS", "YES ")), "(0028,0301) Burned In Annotation is YES"},
        {File({}, Explicit(0x00280302, "CS", "Yes ")), "(0028,0302)"},
        {Part10(kExplicitUid, Explicit(0x00080060, "CS", "US") + DataSet({})), "modality, US"},
        {Part10(kExplicitUid, Explicit(0x00080008, "CS", "DERIVED\\OTHER\\SCREEN SAVE ") + DataSet({})), "screen"},
        {File({}, Us(0x60000100, 16) + Us(0x60000102, 12) + Explicit(0x7FE00010, "OW", "abcd")), "overlay"},
    };
    for (const auto& [file, reason] : risks)
    {
        SCOPED_TRACE(reason);
        EXPECT_EQ(Output(file, "", 20), "");
        EXPECT_TRUE(Holds(m_run.err, "refused: ", reason, "--accept-pixels"));
        const bool isDeclared = reason.find("0301") != std::string::npos;
        const std::string taken = Output(file, "--accept-pixels", isDeclared ? 10 : 0);
        EXPECT_FALSE(taken.empty());
        EXPECT_EQ(reason.find("PDF") != std::string::npos, taken.find("%PDF") != std::string::npos);
    }
    Expect(20, "deidentify in.dcm -o out --key in.dcm/x", "in.dcm/x");
    Write("short.txt", "abc\n");
    Expect(20, "deidentify in.dcm -o out --key short.txt", "fewer than 32 characters");
    Expect(1, "deidentify --classic in.dcm -o out", "--classic");
    Expect(1, "deidentify in.dcm -o new --key ./new/../new/deep/key", "--key", "would be given away");
    Expect(1, "deidentify in.dcm -o ./out/ --report out/r.json", "--report", "would be given away");
}

TEST_F(Deidentify, RectanglesAreClearedInEveryFrame)
{
    // Two frames of three columns and two rows, eight bits.
    const std::string header = Us(0x00280002, 1) + Explicit(0x00280004, "CS", "MONOCHROME2 ") +
                               Explicit(0x00280008, "IS", "2 ") + Us(0x00280010, 2) + Us(0x00280011, 3) +
                               Us(0x00280100, 8) + Us(0x00280101, 8) + Us(0x00280102, 7) + Us(0x00280103, 0);
    const std::string native = File({}, header + Explicit(0x7FE00010, "OB", "abcdefABCDEF"));
    const std::string cleared = Output(native, "--black-out 1,0,9,9");
    EXPECT_TRUE(cleared.ends_with(std::string("a\0\0d\0\0A\0\0D\0\0", 12)));
    EXPECT_EQ(At(m_output, "BurnedInAnnotation"), "NO");
    EXPECT_EQ(At(m_output, "DeidentificationMethodCodeSequence[2].CodeValue"), "113101");
    EXPECT_TRUE(Output(native).ends_with("abcdefABCDEF"));
    EXPECT_EQ(Output(native, "--black-out 3,0,1,1 --black-out 0,2,1,1", 20), ""); // Nothing would be cleared.

    // The same in RLE: a segment of literal bytes for each frame.
    const std::string begin = LittleEndian(1, 4) + LittleEndian(64, 4) + std::string(56, '\0') + '\5';
    const std::string table = Explicit(0x7FE00001, "OB", std::string(16, '\0'));
    Output(Part10(kRleUid,
                  DataSet({}, header) + table + Encapsulated("", {begin + "abcdef" + '\0', begin + "ABCDEF" + '\0'})),
           "--black-out 1,0,2,1 --black-out 1,1,2,1");
    EXPECT_EQ(At(m_output, "7FE00001"), "-"); // The frames have other places now.
    Expect(0, "frames \"" + m_output + "\" -o frames");
    const std::string frame = Read("frames/frame-0002.bin");
    // Each row is a literal and a run: 00 41 FF 00, 00 44 FF 00.
    EXPECT_EQ(frame.substr(64, 8), std::string("\0A\xFF\0\0D\xFF\0", 8));
    EXPECT_EQ(At(m_output, "0002,0010"), kRleUid);

    const std::string jpeg = Part10("1.2.840.10008.1.2.4.50", DataSet({}, header) + Encapsulated("", {"jpeg"}));
    EXPECT_EQ(Output(jpeg, "--black-out 1,0,2,1", 20), "");
    EXPECT_TRUE(Holds(m_run.err, "cannot be cleared", "only native and RLE"));
    for (const std::string wrong : {"1,2,3", "1,2,3,4,5", "-1,2,3,4", "1,2,0,4", "a,b,c,d"})
    {
        Expect(1, "deidentify in.dcm -o out --black-out=" + wrong, "is not X,Y,W,H");
    }
}

TEST_F(Deidentify, ListedPrivateAttributesStay)
{
    const std::string block = Explicit(0x00190010, "LO", "ACME") + Explicit(0x00191001, "LO", "kept") +
                              Explicit(0x00191002, "LO", "gone") + Explicit(0x00290010, "LO", "ACME") +
                              Explicit(0x00291001, "LO", "gone");
    Write("safe.txt", "(0019,\"ACME\",01)\n");
    const std::string output = Output(File({}, block), "--retain-safe-private safe.txt");
    EXPECT_NE(output.find("kept"), std::string::npos);
    EXPECT_EQ(output.find("gone"), std::string::npos);
    EXPECT_EQ(At(m_output, "00290010"), "-");
    Write("safe.txt", "PatientName\n");
    Expect(1, "deidentify in.dcm -o out --retain-safe-private safe.txt", "safe.txt:1:", "not a private attribute");
}

TEST_F(Deidentify, TheReportHasTheOrderOfTheInputs)
{
    std::string names;
    std::string order;
    for (int i = 0; i < 12; ++i)
    {
        // The first takes longest, and one is not an object.
        const std::string name = "o" + std::to_string(10 + i);
        const std::string curve = Explicit(0x54001010, "OW", std::string(i == 0 ? 20000000 : 2, 'x'));
        Write(name, i == 5 ? "text" : File({.instance = "1.2.3." + std::to_string(i)}, curve));
        names += " " + name;
        order += name + " ";
    }
    Expect(20, "deidentify" + names + " -o out -j 4 --report r.json");
    std::istringstream report(Read("r.json"));
    std::string lines;
    for (std::string line; std::getline(report, line);)
    {
        lines += line.substr(10, 3) + " ";
    }
    EXPECT_EQ(lines, order);
}

TEST_F(Deidentify, TwoInputsNeverGoToOneOutput)
{
    Write("a.dcm", File({}));
    Write("b.dcm", File({}));
    Expect(40, "deidentify a.dcm b.dcm -o out --key k.txt", "b.dcm: not written: another input");
    EXPECT_EQ(FilesIn("out").size(), 1U);
}
