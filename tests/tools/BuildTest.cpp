#include "Jpeg.h"
#include "ToolRunner.h"

class Build : public ToolTest
{
protected:
    /// An example script, copied to where the test runs.
    static void TakeExample(const std::string& name)
    {
        std::filesystem::copy_file(ProjectFolder() / "examples" / "scripts" / name, name);
    }
};

namespace
{

const std::string kBaselineUid = "1.2.840.10008.1.2.4.50";
const std::string kJpeg2000Uid = "1.2.840.10008.1.2.4.90";

const std::string kSmall = "0008,0016,UI,1,SOP Class UID,[1.2.840.10008.5.1.4.1.1.7,]\n"
                           "0008,0018,UI,1,SOP Instance UID,[1.2.3,]\n"
                           "0010,0010,PN,1,Patient's Name,[Doe^Jane,]\n";

} // namespace

TEST_F(Build, ANewScriptIsRefusedUntilItIsFilledIn)
{
    for (const std::string kind : {"CT", "MR", "CR", "NM", "US", "US-MF", "SC", "SC-MF"})
    {
        Expect(0, "new " + kind + " -o s.asl");
        Expect(20, "build s.asl -o out.dcm", "(0028,0004) Photometric Interpretation needs a value (type 1)",
               "There is no pixel data: #SOURCE_FILE", "out.dcm: not written");
        EXPECT_FALSE(std::filesystem::exists("out.dcm")) << kind;
        Expect(0, "build --force s.asl -o out.dcm");
        EXPECT_EQ(TextsOf("out.dcm", {0x00020010, 0x00100010}), "[" + kExplicitUid + "][]") << kind;
        EXPECT_EQ(TextsOf("out.dcm", {0x00020002, 0x00020003}), TextsOf("out.dcm", {0x00080016, 0x00080018})) << kind;
        std::filesystem::remove("out.dcm");
    }
}

TEST_F(Build, CtFromThePhantom)
{
    ASSERT_EQ(StatusOf("example_phantom", "phantom.dcm"), 0);
    TakeExample("ct-from-phantom.asl");
    for (const std::string syntax : {"big", "explicit"})
    {
        Expect(0, "build -v ct-from-phantom.asl -o ct.dcm --syntax " + syntax, "'phantom.dcm': 1 frame");
    }
    const std::string pixels = Read("phantom.dcm").substr(Read("phantom.dcm").size() - 64U * 64U * 2U);
    EXPECT_TRUE(Read("ct.dcm").ends_with(Explicit(0x7FE00010, "OW", pixels)));
}

TEST_F(Build, CaptureFromPictures)
{
    TakeExample("pictures-to-capture.asl");
    for (const std::string name : {"a.jpg", "b.jpg", "c.jpg"})
    {
        Write(name, Jpeg(0xC0, 64, 48, name));
    }
    Expect(0, "build pictures-to-capture.asl -o capture.dcm");
    EXPECT_EQ(TextsOf("capture.dcm", {0x00020010, 0x00280008}), "[" + kBaselineUid + "][3]");
    Expect(0, "frames -o frames capture.dcm");
    EXPECT_EQ(Read("frames/frame-0003.jpg"), Jpeg(0xC0, 64, 48, "c.jpg"));
    Expect(20, "build -s big pictures-to-capture.asl -o big.dcm");
}

TEST_F(Build, DeidentifiedCopy)
{
    ASSERT_EQ(StatusOf("example_phantom", "phantom.dcm"), 0);
    TakeExample("deidentified-copy.asl");
    Write("copy.asl", Read("deidentified-copy.asl") + Run("dump phantom.dcm").out);
    Expect(0, "build -o copy.dcm - <copy.asl");
    EXPECT_EQ(TextsOf("copy.dcm", {0x00100010, 0x00100030, 0x00120062, 0x00080020}), "[REMOVED][][YES][20240131]");
    const std::string copy = Read("copy.dcm");
    EXPECT_EQ(copy.find("Phantom^Disc"), std::string::npos);
    const std::string phantom = Read("phantom.dcm");
    EXPECT_TRUE(copy.ends_with(phantom.substr(phantom.size() - 64U * 64U * 2U)));
}

TEST_F(Build, DoesWhatTheLibraryLeavesToItsCaller)
{
    const std::string item = "0010,0101,SQ,1,Patient's Primary Language Code Sequence,[1]\n"
                             "#SEQUENCE_BEGIN\n   0008,0104,LO,1,Code Meaning,[German,]\n#SEQUENCE_END\n";
    Write("s.asl", kSmall + item +
                       "#ANONYMIZE_55=0,SOMEBODY\n#anonymize_group=0010\n#REMOVE_GROUP=0009, 0018\n"
                       "#REMOVE_EMPTY_GROUP=0020\n#TARGET_FILE=Target.DCM\n"
                       "0010,0030,DA,1,Patient's Birth Date,[19700101,]\n0010,1030,DS,1,Patient's Weight,[70,]\n"
                       "0018,0060,DS,1,KVP,[120,]\n0020,0010,SH,1,Study ID,[]\n0020,0011,IS,1,Series Number,[1,]\n"
                       "0028,0010,US,1,Rows,[]\n");
    Expect(0, "build -v s.asl", "s.asl: TARGET_FILE: target.dcm\n", "s.asl: (0018,0060) KVP: REMOVE_GROUP=0018\n",
           "s.asl: (0020,0010) Study ID: REMOVE_EMPTY_GROUP=0020\n",
           "s.asl: (0010,0010) Patient's Name: ANONYMIZE_GROUP=0010\n",
           "(0002,0003) Media Storage SOP Instance UID: added");
    EXPECT_EQ(TextsOf("target.dcm", {0x00100010, 0x00100030, 0x00101030, 0x00080018}), "[SOMEBODY][][][1.2.3]");
    EXPECT_EQ(TextsOf("target.dcm", {0x00180060, 0x00200010, 0x00200011, 0x00280010}), "--[1][]");
    EXPECT_EQ(Read("target.dcm").find("German"), std::string::npos);

    // A name in an item is out of reach. By the classic rules what follows an empty sequence would slip into it.
    Write("t.asl", kSmall + "#ANONYMIZE_55=1,X\n0008,1110,SQ,1,,[]\n#SEQUENCE_BEGIN\n#SEQUENCE_END\n"
                            "0040,0275,SQ,1,,[]\n#SEQUENCE_BEGIN\n0010,0010,PN,1,,[Doe^John,]\n#SEQUENCE_END\n");
    Expect(10, "build --classic t.asl -o target.dcm", "not covered: 1 identifying attribute in sequence items",
           "(0008,1110) Referenced Study Sequence is left out");
    EXPECT_EQ(TextsOf("target.dcm", {0x00100010}), "[X]");

    Write("t.asl", kSmall);
    Expect(1, "build t.asl");
    Write("t.asl", kSmall + "#REMOVE_GROUP=patient\n");
    Expect(20, "build t.asl -o t.dcm", "t.asl: 'patient' in a command is not a group");
    // A script that only looks as if it asked for anonymisation must not pass for one that did.
    for (const std::string argument : {"-1,X", ",X"})
    {
        Write("t.asl", kSmall + "#ANONYMIZE_55=" + argument + "\n");
        Expect(20, "build t.asl -o t.dcm");
    }
}

TEST_F(Build, MakesTheItemsThatAScriptMarks)
{
    const auto reference = [](const std::string& uid) { return Explicit(0x00081155, "UI", PaddedUid(uid)); };
    const auto code = [](const std::string& value) { return Item(Explicit(0x00080100, "SH", value)); };
    Write("s.asl", kSmall + "0008,1111,SQ,1,,[]\n#SEQUENCE_BEGIN\n#SEQUENCE_END\n"
                            "0008,1140,SQ,1,,[]\n#SEQUENCE_BEGIN\n0008,1155,UI,1,,[1.1,]\n#ITEM=2\n"
                            "0008,1155,UI,1,,[1.2,]\n0040,A170,SQ,1,,[]\n#SEQUENCE_BEGIN\n#ITEM=1\n"
                            "0008,0100,SH,1,,[A1,]\n#ITEM=2\n0008,0100,SH,1,,[B2,]\n#SEQUENCE_END\n#ITEM=3\n"
                            "#SEQUENCE_END\n0010,0030,DA,1,,[]\n");
    EXPECT_EQ(Expect(0, "build s.asl -o out.dcm").err, "");
    EXPECT_TRUE(HoldsInOrder(Read("out.dcm"), Explicit(0x00081111, "SQ", ""),
                             Explicit(0x00081140, "SQ",
                                      Item(reference("1.1")) +
                                          Item(reference("1.2") + Explicit(0x0040A170, "SQ", code("A1") + code("B2"))) +
                                          Item("")),
                             Explicit(0x00100030, "DA", "")));
}

TEST_F(Build, RefusesLostLinesUnlessForced)
{
    Write("out.dcm", "old");
    Write("s.asl", kSmall + "0028,0010,US,1,Rows,[x,]\nnonsense\n0028,1201,OW,1,,[1,]\n#NONSENSE=1\n"
                            "7fe0,0010,OW,1,Pixel Data,[1 frame,]\n0001,0010,LO,1,,[A,]\n"
                            "#ANONYMIZE_55=yes\n#REMOVE_EMPTY_ALL=2\n#PIXEL_DATA_ROWS=65536\n#PIXEL_DATA_COLS=-64\n");
    const SRun run = Expect(20, "build s.asl -o out.dcm", "ANONYMIZE_55: 'yes'", "REMOVE_EMPTY_ALL: '2'",
                            "PIXEL_DATA_ROWS: '65536'", "s.asl:4: a value is not a number",
                            "s.asl:5: ", "s.asl:6: ", "s.asl:7: ", "s.asl:8: ", "s.asl:9: ", "out.dcm: not written");
    EXPECT_EQ(run.err.find("PIXEL_DATA_COLS"), std::string::npos);
    Expect(20, "build missing.asl -o out.dcm");
    Expect(40, "build s.asl --force -o no-folder/out.dcm");
    EXPECT_EQ(Read("out.dcm"), "old");
    EXPECT_EQ(CountTemporaries(), 0);
    Expect(10, "build --force s.asl -o out.dcm", "not covered: private groups 0001");
    EXPECT_EQ(TextsOf("out.dcm", {0x00100010}), "[Doe^Jane]");
}

TEST_F(Build, NamesEachSourceThatIsNotInTheObject)
{
    Write("plain.dcm", Part10(kExplicitUid, Explicit(0x7FE00010, "OW", "AB")));
    Write("text.dcm", "no object");
    Write("broken.jpg", "no picture");
    Write("notes.txt", "");
    std::filesystem::create_directory("more");
    Write("more/x.jpg", Jpeg(0xC0, 8, 8));
    Write("s.asl", kSmall + "#PIXEL_DATA_FILE=plain.dcm\n#PIXEL_DATA_FILE=text.dcm\n#PIXEL_DATA_FILE=broken.jpg\n"
                            "#PIXEL_DATA_FILE=notes.txt\n#PIXEL_DATA_DIR=none\\*.jpg\n#PIXEL_DATA_DIR=more\\*.jpg\n");
    Expect(20, "build s.asl -o out.dcm", "'plain.dcm': frames are not taken", "'text.dcm': not readable as DICOM",
           "'broken.jpg': not a JPEG", "'notes.txt': the name does not end", "'none\\*.jpg': no file matches",
           "'x.jpg': missing, not a regular file, or unreadable; the first file that a pattern finds must be");
    Write("s.asl", kSmall + "#PIXEL_DATA_FILE=one.dcm\n#PIXEL_DATA_FILE=plain.dcm\n#PIXEL_DATA_FILE=two.dcm\n");
    Expect(20, "build s.asl -o out.dcm", "'one.dcm': missing", "'two.dcm': missing");
    EXPECT_FALSE(std::filesystem::exists("out.dcm"));
}

TEST_F(Build, CompressedSourcesKeepTheirTransferSyntax)
{
    const std::string pixels = Encapsulated("", {"AAAA", "BB"});
    Write("j2k.dcm", Part10(kJpeg2000Uid, Explicit(0x00280008, "IS", "2 ") + Us(0x00280010, 4) + pixels));
    Write("p.jpg", Jpeg(0xC0, 8, 8));
    Write("s.asl", kSmall + "#PIXEL_DATA_FILE=j2k.dcm\n");
    Expect(0, "build s.asl -o out.dcm");
    EXPECT_EQ(TextsOf("out.dcm", {0x00020010}), "[" + kJpeg2000Uid + "]");
    const std::string table = LittleEndian(0, 4) + LittleEndian(12, 4);
    EXPECT_TRUE(Read("out.dcm").ends_with(Encapsulated(table, {"AAAA", "BB"})));
    Write("s.asl", kSmall + "#PIXEL_DATA_FILE=j2k.dcm\n#PIXEL_DATA_FILE=p.jpg\n");
    Expect(20, "build s.asl -o out.dcm",
           "frames of different transfer syntaxes: " + kBaselineUid + ", " + kJpeg2000Uid);
}

TEST_F(Build, KeepsWhatALineSaysOfItsValue)
{
    const std::string lines = "0008,0119,UC,1,,[code,]\n0020,4000,LT,1,,[one, two,]\n0028,0120,SS,1,,[5,]\n";
    const std::string code = Tag(0x00080119) + "UC" + LittleEndian(0, 2) + LittleEndian(4, 4) + "code";
    const std::string rest = Explicit(0x00204000, "LT", "one, two") + Explicit(0x00280120, "SS", LittleEndian(5, 2));
    Write("s.asl", kSmall + lines + "0040,0275,SQ,1,,[]\n#SEQUENCE_BEGIN\n" + lines + "#SEQUENCE_END\n");
    EXPECT_EQ(Expect(0, "build s.asl -o out.dcm").err, "");
    EXPECT_TRUE(HoldsInOrder(Read("out.dcm"), code, rest + Explicit(0x00400275, "SQ", Item(code + rest))));
    // Other VRs of lines are not followed, and what a command has set stays.
    Write("s.asl", kSmall + "0020,4000,LO,1,,[a,]\n0010,0020,LO,1,,[Doe, J,]\n#ANONYMIZE_55=1,X\n");
    Expect(0, "build s.asl -o out.dcm", "s.asl:4: the dictionary gives the tag another VR");
    EXPECT_EQ(TextsOf("out.dcm", {0x00100020}), "[X]");
}

TEST_F(Build, APictureSaysHowItIsStored)
{
    // A frame of three components, the first with the given sampling factors.
    const auto color = [](int marker, char sampling, const std::string& before)
    {
        return "\xFF\xD8" + before + "\xFF" + static_cast<char>(marker) +
               std::string("\0\x11\x08\0\x08\0\x10\x03\x01", 9) + sampling + std::string("\0\x02\x11\0\x03\x11\0", 7) +
               "\xFF\xD9";
    };
    const std::string adobeRgb = std::string("\xFF\xEE\0\x0E"
                                             "Adobe\0\x64\0\0\0\0\0",
                                             16);
    const struct
    {
        std::string picture;
        const char* described; // Transfer syntax, photometric interpretation, lossy compression and its method.
    } cases[] = {
        {Jpeg(0xC0, 8, 8), "[1.2.840.10008.1.2.4.50][MONOCHROME2][01][ISO_10918_1]"},
        {color(0xC0, 0x22, ""), "[1.2.840.10008.1.2.4.50][YBR_FULL_422][01][ISO_10918_1]"},
        {color(0xC1, 0x11, ""), "[1.2.840.10008.1.2.4.51][YBR_FULL][01][ISO_10918_1]"},
        {color(0xC0, 0x11, adobeRgb), "[1.2.840.10008.1.2.4.50][RGB][01][ISO_10918_1]"},
        {color(0xC3, 0x11, ""), "[1.2.840.10008.1.2.4.57][RGB]--"},
    };
    Write("s.asl", kSmall + "0028,0002,US,1,Samples per Pixel,[4,]\n#PIXEL_DATA_FILE=Pic.JPG\n");
    for (const auto& one : cases)
    {
        Write("Pic.JPG", one.picture);
        Expect(0, "build s.asl -o out.dcm", "Samples per Pixel: 4 replaced by ");
        EXPECT_EQ(TextsOf("out.dcm", {0x00020010, 0x00280004, 0x00282110, 0x00282114}), one.described);
        EXPECT_EQ(TextsOf("out.dcm", {0x00280008}), "-");
    }
    Write("Pic.JPG", Jpeg(0xC0, 8, 8).substr(0, 15));
    Expect(20, "build s.asl -o out.dcm", "'Pic.JPG': it is cut off");
    Write("Pic.JPG", Jpeg(0xC2, 8, 8));
    Expect(20, "build s.asl -o out.dcm", "'Pic.JPG': it is a progressive JPEG");
    Write("b.jpg", Jpeg(0xC0, 8, 9));
    Write("Pic.JPG", Jpeg(0xC0, 8, 8));
    Write("s.asl", Read("s.asl") + "#PIXEL_DATA_FILE=b.jpg\n");
    Expect(20, "build s.asl -o out.dcm",
           "'b.jpg': 8 x 9 pixels, 8 bits, MONOCHROME2; the pictures before it have 8 x 8");
}

#if !defined(_WIN32)

TEST_F(Build, ANameIsTriedAsWrittenAndRefusedWhereCaseDecidesNothing)
{
    Write("Scan.jpg", Jpeg(0xC0, 16, 8));
    Write("scan.jpg", Jpeg(0xC0, 8, 8));
    Write("s.asl", kSmall + "#PIXEL_DATA_FILE=.\\Scan.jpg\n");
    Expect(0, "build s.asl -o out.dcm");
    EXPECT_TRUE(Holds(Read("out.dcm"), Us(0x00280011, 16)));
    Expect(20, "--classic build s.asl -o out.dcm", "several names differ from it only in case: ./Scan.jpg, ./scan.jpg");
    Write("s.asl", kSmall + "#PIXEL_DATA_FILE=SCAN.jpg\n");
    Expect(20, "build s.asl -o out.dcm", "'SCAN.jpg': several names differ from it only in case: Scan.jpg, scan.jpg");
}

#endif
