// Objects from text, and whole objects from scripts and the files that they name.
#include "Elements.h"
#include "Jpeg.h"
#include "Varnotix/element/DcmFrameList.h"
#include "Varnotix/iod/DcmCompositeIEIOD.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace
{

using Texts = std::vector<std::string>;
using States = std::vector<int>;

/// A file that is there as long as the test needs it.
class CScratchFile
{
public:
    CScratchFile(const std::string& path, const std::string& content) : m_path(path)
    {
        std::ofstream(path, std::ios::binary) << content;
    }
    ~CScratchFile() { std::filesystem::remove(m_path); }
    CScratchFile(const CScratchFile&) = delete;
    CScratchFile& operator=(const CScratchFile&) = delete;

private:
    std::filesystem::path m_path;
};

/// A stored object of two frames of two rows and three columns.
std::string StoredObject(const char* syntax)
{
    CDcmCompositeIOD object;
    auto pixelData = std::make_unique<CDcmElement>(Varnotix::Tag::kPixelData);
    pixelData->Frames()->AddFrame(TextBytes("first "));
    pixelData->Frames()->AddFrame(TextBytes("second"));
    Fill(object.ElementStore(),
         {MakeText(0x0002, 0x0010, syntax), MakeText(0x0008, 0x0060, "OT"), MakeText(0x0028, 0x0008, "2"),
          MakeWord(0x0028, 0x0010, 2), MakeWord(0x0028, 0x0011, 3), pixelData.release()});
    CByteArray bytes;
    object.ExportFileFormat(bytes);
    return {bytes.begin(), bytes.end()};
}

/// Runs a script in the object; the states of its sources.
States Create(CDcmCompositeIOD& object, const Texts& script)
{
    CStringArray lines;
    for (const std::string& line : script)
    {
        lines.Add(CString(line));
    }
    object.CreateFromASL(lines);
    States states;
    for (const SScriptSource& source : object.ScriptSources())
    {
        EXPECT_STRNE(Varnotix::ScriptSourceText(source.state), "");
        states.push_back(source.state);
    }
    return states;
}

Texts FrameTexts(const CDcmIOD& object)
{
    Texts frames;
    const CDcmElement* pixelData = object.ElementStore().Find(Varnotix::Tag::kPixelData);
    for (int i = 0; pixelData != nullptr && i < pixelData->Frames()->GetCount(); ++i)
    {
        const CDcmFrame& frame = *pixelData->Frames()->GetFrame(i);
        frames.emplace_back(reinterpret_cast<const char*>(frame.Data()), frame.Size());
    }
    return frames;
}

/// "columns x rows".
std::string SizeOf(const CDcmIOD& object)
{
    const auto wordOf = [&](int element)
    { return std::to_string((*object.ElementStore().Find(0x0028, element)->Words())[0]); };
    return wordOf(0x0011) + " x " + wordOf(0x0010);
}

} // namespace

TEST(ImportFromAsl, ReplacesTheObjectUnlessThereIsNothingToTake)
{
    const CScratchFile file("commands.asl", "#SOURCE_FILE=none\r\n; no element\r\n#NONSENSE\r\n");
    CDcmIOD object;
    Fill(object.ElementStore(), {MakeText(0x0010, 0x0040, "F")});
    object.ImportFromASL("commands.asl");
    ASSERT_EQ(object.ScriptNotes().size(), 1U);
    EXPECT_EQ(object.ScriptNotes()[0].line, 2);
    EXPECT_EQ(object.ScriptNotes()[0].kind, SCRIPT_UNKNOWN_COMMAND);
    object.ImportFromASL("there is no such file");
    object.ImportFromASL(".");
    EXPECT_TRUE(object.ScriptNotes().empty());
    EXPECT_EQ(Listing(object.ElementStore()), Texts{"00100040=F"});

    const CScratchFile name("name.asl", "0010,0010,PN,1,x,[DOE,]\n");
    CDcmCompositeIEIOD typed;
    Fill(typed.ElementStore(), {MakeText(0x0010, 0x0040, "F")});
    typed.ImportFromASL("name.asl");
    EXPECT_EQ(Listing(typed.ElementStore()), Texts{"00100010=DOE"});
    EXPECT_STREQ(typed.Module<CDcmPatientModule>().PatientName(), "DOE");
}

TEST(CreateFromAsl, APictureIsAFrame)
{
    const std::string baseline = Jpeg(0xC0, 640, 480);
    const std::string progressive = Jpeg(0xC2, 30, 20, "with Exif ");
    const CScratchFile first("First.jpg", baseline);
    const CScratchFile second("second.JPG", progressive);
    const CScratchFile broken("broken.jpg", baseline.substr(0, 8));
    const CScratchFile other("other.png", baseline);
    const Texts script = {"0028,0010,US,1,Rows,[1,]",     "#PIXEL_DATA_FILE=SECOND.jpg", "#PIXEL_DATA_FILE=first.jpg",
                          "#PIXEL_DATA_FILE=broken.jpg",  "#PIXEL_DATA_FILE=none.jpg",   "#PIXEL_DATA_FILE=other.png",
                          "#PIXEL_DATA_FILE=.\\first.jpg"};
    CDcmCompositeIOD object;
    EXPECT_EQ(Create(object, script),
              (States{SCRIPT_SOURCE_TAKEN, SCRIPT_SOURCE_TAKEN, SCRIPT_SOURCE_NO_PICTURE, SCRIPT_SOURCE_NOT_OPENED,
                      SCRIPT_SOURCE_OTHER_KIND, SCRIPT_SOURCE_TAKEN}));
    EXPECT_EQ(FrameTexts(object), (Texts{progressive, baseline, baseline}));
    EXPECT_EQ(SizeOf(object), "640 x 480");
    EXPECT_EQ(TextOf(object.ElementStore(), 0x0002, 0x0010), "1.2.840.10008.1.2.4.50");
    EXPECT_EQ(TextOf(object.ElementStore(), 0x0028, 0x0008), "3");
    EXPECT_TRUE(object.ElementStore().Find(Varnotix::Tag::kPixelData)->HasVr(VR_OB));

    // A size in the script goes before the pictures'; what is not a number does not.
    CDcmCompositeIOD sized;
    Create(sized, {"#PIXEL_DATA_FILE=first.jpg", "#PIXEL_DATA_COLS=-500", "#PIXEL_DATA_ROWS=many"});
    EXPECT_EQ(SizeOf(sized), "500 x 480");
}

TEST(CreateFromAsl, APatternsFirstMatchIsLookedForWithoutItsFolder)
{
    std::filesystem::create_directory("Pictures");
    {
        const std::string pictures[] = {Jpeg(0xC0, 1, 1), Jpeg(0xC0, 2, 2)};
        const CScratchFile firstMatch("Pictures/a.jpg", pictures[0]);
        const CScratchFile secondMatch("Pictures/B.jpg", pictures[1]);
        CDcmCompositeIOD object;
        EXPECT_EQ(Create(object, {"#PIXEL_DATA_DIR=pictures\\*.jpg", "#PIXEL_DATA_DIR=PICTURES/?.JPG",
                                  "#PIXEL_DATA_DIR=pictures\\*.bmp", "#PIXEL_DATA_DIR=no such folder\\*"}),
                  (States{SCRIPT_SOURCE_NO_MATCH, SCRIPT_SOURCE_NO_MATCH, SCRIPT_SOURCE_NOT_OPENED, SCRIPT_SOURCE_TAKEN,
                          SCRIPT_SOURCE_NOT_OPENED, SCRIPT_SOURCE_TAKEN}));
        // The folder itself is what "*.*" finds first, so that every file has its folder.
        CDcmCompositeIOD all;
        EXPECT_EQ(
            Create(all, {"#PIXEL_DATA_DIR=pictures\\*.*"}),
            (States{SCRIPT_SOURCE_OTHER_KIND, SCRIPT_SOURCE_OTHER_KIND, SCRIPT_SOURCE_TAKEN, SCRIPT_SOURCE_TAKEN}));
        // The system's order decides which of the two has none.
        const bool aIsFirst = object.ScriptSources()[2].name == "a.jpg";
        const std::string& second = pictures[aIsFirst ? 1 : 0];
        EXPECT_EQ(FrameTexts(object), (Texts{second, second}));
        const CScratchFile bare(aIsFirst ? "a.jpg" : "B.jpg", Jpeg(0xC0, 3, 3));
        Create(all, {"#PIXEL_DATA_DIR=pictures\\*.jpg"});
        EXPECT_EQ(FrameTexts(all), (Texts{Jpeg(0xC0, 3, 3), second}));
    }
    std::filesystem::remove("Pictures");
}

TEST(CreateFromAsl, ObjectsGiveFramesWhenTheirSyntaxIsCompressed)
{
    const CScratchFile jpeg("jpeg.DCM", StoredObject("1.2.840.10008.1.2.4.50"));
    const CScratchFile rle("rle.dcm", StoredObject("1.2.840.10008.1.2.5"));
    const CScratchFile plain("plain.dcm", StoredObject("1.2.840.10008.1.2.1"));
    const CScratchFile text("text.dcm", "#PIXEL_DATA_FILE=text.dcm");
    const CScratchFile picture("picture.jpg", Jpeg(0xC0, 9, 8));
    CDcmCompositeIOD object;
    EXPECT_EQ(Create(object, {"#PIXEL_DATA_FILE=picture.jpg", "#PIXEL_DATA_FILE=jpeg.dcm", "#PIXEL_DATA_FILE=rle.dcm",
                              "#PIXEL_DATA_FILE=plain.dcm", "#PIXEL_DATA_FILE=text.dcm"}),
              (States{SCRIPT_SOURCE_TAKEN, SCRIPT_SOURCE_TAKEN, SCRIPT_SOURCE_OTHER_SYNTAX, SCRIPT_SOURCE_OTHER_SYNTAX,
                      SCRIPT_SOURCE_NO_OBJECT}));
    EXPECT_EQ(FrameTexts(object), (Texts{Jpeg(0xC0, 9, 8), "first ", "second"}));
    EXPECT_EQ(object.ScriptSources()[1].frames, 2);
    EXPECT_EQ(SizeOf(object), "3 x 2");
    EXPECT_EQ(TextOf(object.ElementStore(), 0x0028, 0x0008), "3");
    EXPECT_EQ(TextOf(object.ElementStore(), 0x0008, 0x0060), "none");

    // Without any frame the object keeps its attributes and no more.
    CDcmCompositeIOD bare;
    Create(bare, {"0008,0060,CS,1,Modality,[CT,]", "#PIXEL_DATA_FILE=plain.dcm"});
    EXPECT_EQ(Listing(bare.ElementStore()), Texts{"00080060=CT"});
}

TEST(CreateFromAsl, ASourceFileGoesBeforeEverythingElse)
{
    const CScratchFile plain("plain.dcm", StoredObject("1.2.840.10008.1.2.1"));
    const CScratchFile picture("picture.jpg", Jpeg(0xC0, 9, 8));
    CDcmCompositeIOD object;
    EXPECT_EQ(Create(object, {"#PIXEL_DATA_FILE=picture.jpg", "#SOURCE_FILE=PLAIN.DCM", "0008,0060,CS,1,Modality,[CT,]",
                              "0028,0010,US,1,Rows,[99,]"}),
              (States{SCRIPT_SOURCE_PASSED_OVER, SCRIPT_SOURCE_TAKEN}));
    EXPECT_EQ(FrameTexts(object), (Texts{"first ", "second"}));
    EXPECT_EQ(SizeOf(object), "3 x 2");
    EXPECT_EQ(TextOf(object.ElementStore(), 0x0028, 0x0008), "2 ");
    EXPECT_EQ(TextOf(object.ElementStore(), 0x0008, 0x0060), "CT");
    EXPECT_EQ(TextOf(object.ElementStore(), 0x0002, 0x0010), "none");
}

TEST(CreateFromAsl, KeepsValuesFromEmptyElementsAndAnonymisesWhenTheScriptSaysOne)
{
    for (const auto& [flag, name] : {std::pair("1", "A"), {" 1x", "A"}, {"yes", ""}})
    {
        CDcmCompositeIOD object;
        Fill(object.ElementStore(), {MakeText(0x0010, 0x0010, "A"), MakeText(0x0010, 0x0020, "7")});
        Create(object, {std::string("#REMOVE_EMPTY_ALL=") + flag, "0010,0010,PN,1,x,[]", "0010,0040,CS,1,x,[F,]"});
        EXPECT_EQ(Listing(object.ElementStore()), (Texts{std::string("00100010=") + name, "00100020=7", "00100040=F"}))
            << flag;
    }
    for (const auto& [arguments, name] : {std::pair("1,Nobody", "Nobody"), {"yes,Nobody", "A"}, {"1", "none"}})
    {
        CDcmCompositeIOD object;
        Create(object, {std::string("#ANONYMIZE_55=") + arguments, "0010,0010,PN,1,x,[A,]"});
        EXPECT_EQ(TextOf(object.ElementStore(), 0x0010, 0x0010), name) << arguments;
    }
}

TEST(CreateFromAsl, FilesThatDoNotOpenDoNoHarm)
{
    std::filesystem::create_directory("folder.dcm");
    const CScratchFile picture("picture.jpg", Jpeg(0xC0, 9, 8));
    const CScratchFile beyondAscii("\xE4.jpg", Jpeg(0xC0, 9, 8));
    CDcmCompositeIOD pictures;
    EXPECT_EQ(Create(pictures, {"#PIXEL_DATA_FILE=none.jpg", "#PIXEL_DATA_FILE=\xE4.jpg"}),
              (States{SCRIPT_SOURCE_NOT_OPENED, SCRIPT_SOURCE_NOT_ASCII}));
    for (const char* command :
         {"#PIXEL_DATA_FILE=none.dcm", "#PIXEL_DATA_FILE=folder.dcm", "#SOURCE_FILE=none", "#SOURCE_FILE=/dev/zero"})
    {
        CDcmCompositeIOD object;
        EXPECT_THROW(Create(object, {"0008,0060,CS,1,Modality,[CT,]", "#PIXEL_DATA_FILE=picture.jpg", command}),
                     CFileException)
            << command;
        ASSERT_EQ(object.ScriptSources().size(), 2U);
        EXPECT_EQ(object.ScriptSources()[1].state, SCRIPT_SOURCE_NOT_OPENED);
        EXPECT_EQ(Listing(object.ElementStore()), Texts{"00080060=CT"});
    }
    std::filesystem::remove("folder.dcm");
}
