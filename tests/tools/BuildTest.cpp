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

TEST_F(Build, EachNewScriptBuildsAsItIs)
{
    for (const char* kind : {"CT", "MR", "CR", "NM", "US", "US-MF", "SC", "SC-MF"})
    {
        ASSERT_EQ(Run(std::string("new ") + kind + " -o s.asl").status, 0) << kind;
        const SRun run = Run("build s.asl -o out.dcm");
        EXPECT_EQ(run.status, 0) << kind << run.err;
        EXPECT_EQ(run.err, "") << kind;
        CDcmIOD object;
        ReadObject("out.dcm", object);
        EXPECT_EQ(TextOf(object, 0x0002, 0x0010), kExplicitUid) << kind;
        EXPECT_EQ(TextOf(object, 0x0002, 0x0002), TextOf(object, 0x0008, 0x0016)) << kind;
        EXPECT_EQ(TextOf(object, 0x0002, 0x0003), TextOf(object, 0x0008, 0x0018)) << kind;
        EXPECT_NE(object.ElementStore().Find(0x0010, 0x0010), nullptr) << kind;
    }
}

TEST_F(Build, CtFromThePhantom)
{
    ASSERT_EQ(RunProgram("example_phantom", "out.txt", "phantom.dcm").status, 0);
    TakeExample("ct-from-phantom.asl");
    for (const char* syntax : {"big", "explicit"})
    {
        const SRun run = Run(std::string("build -v ct-from-phantom.asl -o ct.dcm --syntax ") + syntax);
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_TRUE(Holds(run.err, "'phantom.dcm': 1 frame"));
    }
    CDcmIOD phantom;
    ReadObject("phantom.dcm", phantom);
    CDcmIOD ct;
    ReadObject("ct.dcm", ct);
    const CDcmFrame& expected = *phantom.ElementStore().Find(0x7FE0, 0x0010)->Frames()->GetFrame(0);
    const CDcmFrame& frame = *ct.ElementStore().Find(0x7FE0, 0x0010)->Frames()->GetFrame(0);
    ASSERT_EQ(frame.Size(), expected.Size());
    EXPECT_TRUE(std::equal(frame.Data(), frame.Data() + frame.Size(), expected.Data()));
}

TEST_F(Build, CaptureFromPictures)
{
    TakeExample("pictures-to-capture.asl");
    std::vector<std::string> pictures;
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg"})
    {
        pictures.push_back(Jpeg(0xC0, 64, 48, name));
        Write(name, pictures.back());
    }
    const SRun run = Run("build pictures-to-capture.asl -o capture.dcm");
    ASSERT_EQ(run.status, 0) << run.err;
    CDcmIOD object;
    ReadObject("capture.dcm", object);
    EXPECT_EQ(TextOf(object, 0x0002, 0x0010), kBaselineUid);
    EXPECT_EQ(TextOf(object, 0x0028, 0x0008), "3");
    ASSERT_EQ(Run("frames -o frames capture.dcm").status, 0);
    for (std::size_t i = 0; i < pictures.size(); ++i)
    {
        const std::string frame = Read("frames/frame-000" + std::to_string(i + 1) + ".jpg");
        EXPECT_EQ(frame.substr(0, pictures[i].size()), pictures[i]);
        EXPECT_LE(frame.size(), pictures[i].size() + 1); // The padding of an odd one.
    }
    EXPECT_EQ(Run("build -s big pictures-to-capture.asl -o big.dcm").status, 20);
}

TEST_F(Build, DeidentifiedCopy)
{
    ASSERT_EQ(RunProgram("example_phantom", "out.txt", "phantom.dcm").status, 0);
    TakeExample("deidentified-copy.asl");
    Write("copy.asl", Read("deidentified-copy.asl") + Run("dump phantom.dcm").out);
    const SRun run = Run("build -o copy.dcm - <copy.asl");
    ASSERT_EQ(run.status, 0) << run.err;
    CDcmIOD copy;
    ReadObject("copy.dcm", copy);
    EXPECT_EQ(TextOf(copy, 0x0010, 0x0010), "REMOVED");
    EXPECT_EQ(TextOf(copy, 0x0010, 0x0030), "");
    EXPECT_EQ(TextOf(copy, 0x0012, 0x0062), "YES");
    EXPECT_EQ(TextOf(copy, 0x0008, 0x0020), "20240131");
    EXPECT_EQ(Read("copy.dcm").find("Phantom^Disc"), std::string::npos);
    EXPECT_EQ(copy.ElementStore().Find(0x7FE0, 0x0010)->Frames()->TotalSize(), 64U * 64U * 2U);
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
    const SRun run = Run("build -v s.asl");
    ASSERT_EQ(run.status, 0) << run.err;
    for (const char* line : {"s.asl: TARGET_FILE: target.dcm\n", "s.asl: (0018,0060) KVP: REMOVE_GROUP=0018\n",
                             "s.asl: (0020,0010) Study ID: REMOVE_EMPTY_GROUP=0020\n",
                             "s.asl: (0010,0010) Patient's Name: ANONYMIZE_GROUP=0010\n",
                             "(0002,0003) Media Storage SOP Instance UID: added"})
    {
        EXPECT_TRUE(Holds(run.err, line));
    }
    CDcmIOD object;
    ReadObject("target.dcm", object);
    EXPECT_EQ(TextOf(object, 0x0010, 0x0010), "SOMEBODY");
    EXPECT_EQ(TextOf(object, 0x0010, 0x0030), "");
    EXPECT_EQ(TextOf(object, 0x0010, 0x1030), "");
    EXPECT_EQ(TextOf(object, 0x0008, 0x0018), "1.2.3");
    EXPECT_EQ(TextOf(object, 0x0018, 0x0060), "(absent)");
    EXPECT_EQ(TextOf(object, 0x0020, 0x0010), "(absent)");
    EXPECT_EQ(TextOf(object, 0x0020, 0x0011), "1");
    EXPECT_NE(object.ElementStore().Find(0x0028, 0x0010), nullptr);
    EXPECT_EQ(Read("target.dcm").find("German"), std::string::npos);

    // A name in an item is out of reach, and what follows an empty sequence would slip into it.
    Write("t.asl", kSmall + "#ANONYMIZE_55=1,X\n0008,1110,SQ,1,,[]\n#SEQUENCE_BEGIN\n#SEQUENCE_END\n"
                            "0040,0275,SQ,1,,[]\n#SEQUENCE_BEGIN\n0010,0010,PN,1,,[Doe^John,]\n#SEQUENCE_END\n");
    const SRun told = Run("build t.asl -o target.dcm");
    EXPECT_TRUE(Holds(told.err, "not covered: 1 identifying attribute in sequence items"));
    EXPECT_TRUE(Holds(told.err, "(0008,1110) Referenced Study Sequence is left out"));
    CDcmIOD whole;
    ReadObject("target.dcm", whole);
    EXPECT_EQ(TextOf(whole, 0x0010, 0x0010), "X");

    Write("t.asl", kSmall);
    EXPECT_EQ(Run("build t.asl").status, 1);
    Write("t.asl", kSmall + "#REMOVE_GROUP=patient\n");
    const SRun wrong = Run("build t.asl -o t.dcm");
    EXPECT_EQ(wrong.status, 20);
    EXPECT_TRUE(Holds(wrong.err, "t.asl: 'patient' in a command is no group"));
    // Nobody may take an object for anonymised whose script only looks as if it asked for that.
    for (const char* argument : {"-1,X", ",X"})
    {
        Write("t.asl", kSmall + "#ANONYMIZE_55=" + argument + "\n");
        EXPECT_EQ(Run("build t.asl -o t.dcm").status, 20) << argument;
    }
}

TEST_F(Build, RefusesLostLinesUnlessForced)
{
    Write("out.dcm", "old");
    Write("s.asl", kSmall + "0028,0010,US,1,Rows,[x,]\nnonsense\n0028,1201,OW,1,,[1,]\n#NONSENSE=1\n"
                            "7fe0,0010,OW,1,Pixel Data,[1 frame,]\n0001,0010,LO,1,,[A,]\n"
                            "#ANONYMIZE_55=yes\n#REMOVE_EMPTY_ALL=2\n#PIXEL_DATA_ROWS=65536\n#PIXEL_DATA_COLS=-64\n");
    const SRun run = Run("build s.asl -o out.dcm");
    EXPECT_EQ(run.status, 20);
    for (const char* argument : {"ANONYMIZE_55: 'yes'", "REMOVE_EMPTY_ALL: '2'", "PIXEL_DATA_ROWS: '65536'"})
    {
        EXPECT_TRUE(Holds(run.err, argument));
    }
    EXPECT_EQ(run.err.find("PIXEL_DATA_COLS"), std::string::npos);
    for (const char* place : {"s.asl:4: a value is not a number",
                              "s.asl:5: ", "s.asl:6: ", "s.asl:7: ", "s.asl:8: ", "s.asl:9: ", "out.dcm: not written"})
    {
        EXPECT_TRUE(Holds(run.err, place));
    }
    EXPECT_EQ(Read("out.dcm"), "old");
    EXPECT_EQ(Run("build missing.asl -o out.dcm").status, 20);
    EXPECT_EQ(Run("build s.asl --force -o no-folder/out.dcm").status, 40);
    EXPECT_EQ(Read("out.dcm"), "old");
    EXPECT_EQ(CountTemporaries(), 0);

    EXPECT_EQ(Run("build --force s.asl -o out.dcm").status, 0);
    CDcmIOD object;
    ReadObject("out.dcm", object);
    EXPECT_EQ(TextOf(object, 0x0010, 0x0010), "Doe^Jane");
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
                            "#PIXEL_DATA_FILE=notes.txt\n#PIXEL_DATA_FILE=none.jpg\n"
                            "#PIXEL_DATA_DIR=none\\*.jpg\n#PIXEL_DATA_DIR=more\\*.jpg\n");
    const SRun skipped = Run("build s.asl -o out.dcm");
    EXPECT_EQ(skipped.status, 20);
    for (const char* line :
         {"'plain.dcm': its transfer syntax", "'text.dcm': it cannot be read as DICOM", "'broken.jpg': it is no JPEG",
          "'notes.txt': its name ends", "'none.jpg': it is missing", "'none\\*.jpg': no file matches",
          "'x.jpg': it is missing, no regular file, or cannot be read; the first file that a pattern finds must lie"})
    {
        EXPECT_TRUE(Holds(skipped.err, line));
    }
    Write("s.asl", kSmall + "#PIXEL_DATA_FILE=one.dcm\n#PIXEL_DATA_FILE=plain.dcm\n#PIXEL_DATA_FILE=two.dcm\n");
    const SRun missing = Run("build s.asl -o out.dcm");
    EXPECT_EQ(missing.status, 20);
    EXPECT_TRUE(Holds(missing.err, "'one.dcm': it is missing"));
    EXPECT_TRUE(Holds(missing.err, "'two.dcm': it is missing"));
    Write("s.asl", kSmall + "#SOURCE_FILE=none.dcm\n");
    EXPECT_TRUE(Holds(Run("build s.asl -o out.dcm").err, "'none.dcm': it is missing"));
    EXPECT_FALSE(FileExists("out.dcm"));
}

TEST_F(Build, CompressedSourcesKeepTheirTransferSyntax)
{
    const std::string pixels = Explicit(0x00280010, "US", LittleEndian(4, 2)) + Encapsulated("", {"AAAA", "BB"});
    Write("j2k.dcm", Part10(kJpeg2000Uid, pixels));
    Write("rle.dcm", Part10(kRleUid, pixels));
    Write("p.jpg", Jpeg(0xC0, 8, 8));
    for (const char* command : {"#SOURCE_FILE=rle.dcm", "#PIXEL_DATA_FILE=j2k.dcm"})
    {
        Write("s.asl", kSmall + command + "\n");
        ASSERT_EQ(Run("build s.asl -o out.dcm").status, 0);
        CDcmIOD object;
        ReadObject("out.dcm", object);
        EXPECT_EQ(TextOf(object, 0x0002, 0x0010), command[1] == 'S' ? kRleUid : kJpeg2000Uid);
        EXPECT_EQ(object.ElementStore().Find(0x7FE0, 0x0010)->Frames()->GetCount(), 2);
    }
    Write("s.asl", kSmall + "#PIXEL_DATA_FILE=j2k.dcm\n#PIXEL_DATA_FILE=p.jpg\n");
    const SRun mixed = Run("build s.asl -o out.dcm");
    EXPECT_EQ(mixed.status, 20);
    EXPECT_TRUE(Holds(mixed.err, "frames of different transfer syntaxes: " + kBaselineUid + ", " + kJpeg2000Uid));
}
