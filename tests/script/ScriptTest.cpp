// Scripts read into a module: lines, commands, values, items, notes.
#include "Elements.h"
#include "Varnotix/asl/AslWriter.h"
#include "Varnotix/script/DcmAttributeScript.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <numeric>

namespace
{

using Texts = std::vector<std::string>;

/// A script that was read, and what it left.
struct SRead
{
    explicit SRead(const Texts& texts, int first = 0, EStreamRules rules = STREAM_RULES_CLASSIC)
    {
        script.StreamRules(rules);
        CStringArray lines;
        for (const std::string& text : texts)
        {
            lines.Add(CString(text));
        }
        stopped = script.Run(lines, module, first);
        for (const SScriptNote& note : script.Notes())
        {
            notes.push_back(std::to_string(note.line) + ":" + std::to_string(note.kind));
            EXPECT_STRNE(Varnotix::ScriptNoteText(note.kind), "");
        }
    }

    /// What the module holds, as text.
    Texts Elements()
    {
        CStringArray lines;
        Varnotix::AslLines(module.GetDcmElementSet(), lines);
        return Lines(lines);
    }

    CDcmAttributeScript script;
    CDcmAttributeModule module;
    int stopped = -1;
    Texts notes; ///< Line and kind of each: "3:7".
};

/// The element that a line gives, as its own text, followed by the notes.
std::string Through(const std::string& line)
{
    SRead read({line});
    const Texts elements = read.Elements();
    std::string result = std::accumulate(elements.begin(), elements.end(), std::string());
    for (const std::string& note : read.notes)
    {
        result += " " + note.substr(2);
    }
    return result;
}

/// The value between the brackets of the element that a line gives.
std::string ValueOf(const std::string& line)
{
    const std::string text = Through(line);
    const std::size_t open = text.find('[');
    return open == std::string::npos ? text : text.substr(open);
}

float FloatOf(const std::string& text)
{
    SRead read({"0018,1320,FL,1,B1rms,[" + text + ",]"});
    return (*read.module.GetDcmElementSet().GetAt(0)->Floats())[0];
}

} // namespace

TEST(Script, ReadsItsLinesAsTheyAreMeant)
{
    SRead read({"0010,0020,LO,1,Patient ID,[too early]", "; a comment, [with] everything", "", "   ",
                " \t0010,0010,PN,1,Patient's Name,[DOE^JOHN,]  ", "10 , 40", "0008,0060,,,,[CT",
                "0010,1010,,,,before[1]", "0010,2180,SH,1,Occupation, [ a,b ]c]",
                std::string("0010,21b0,LT,1,x,[kept\0dropped,]", 29)},
               1);
    EXPECT_EQ(read.stopped, 10);
    EXPECT_EQ(read.Elements(),
              (Texts{"0010,0010,PN,1,Patient's Name,[DOE^JOHN,]", "0010,0040,CS,1,Patient's Sex,[]",
                     "0008,0060,CS,1,Modality,[CT,]", "0010,1010,AS,1,Patient's Age,[1,]",
                     "0010,2180,SH,1,Occupation,[ a,b ,]", "0010,21b0,LT,1,Additional Patient History,[kept,]"}));
    EXPECT_EQ(read.notes, (Texts{"6:7", "7:6", "8:6", "9:7"}));
}

TEST(Script, SkipsLinesWhoseTagCannotBeInserted)
{
    SRead read({"no element at all", ",,,,,[1,]", "zz,0010,LO,1,x,[1,]", "0010,,LO,1,x,[1,]", "0008,7771,LO,1,x,[1,]",
                "7771,1010,LO,2,of no importance,[A,B,]", "7771,1011,,2,x,[1,]", "7771,1012,LO,,x,[1,]",
                "10010,0010,PN,1,x,[A,]", "1FFFF0010,0020,LO,1,x,[A,]"});
    EXPECT_EQ(read.Elements(), Texts{"7771,1010,LO,2,Private Data Element,[A,B,]"});
    EXPECT_EQ(read.notes, (Texts{"0:3", "1:3", "2:3", "3:3", "4:3", "6:3", "7:3", "8:3", "9:3"}));
    EXPECT_EQ(Through("7771,1014,LO,4294967297,x,[A,]"), "7771,1014,LO,2147483647,Private Data Element,[A,]");
    EXPECT_EQ(Through("7771,1010,UI,1,x,[A,]"), "7771,1010,LO,2,Private Data Element,[A,] 5") << "learned before";
}

TEST(Script, RecordsCommandsWhateverTheirCase)
{
    SRead read({"#source_file= C:\\DATA\\A.DCM", "# Target_File =OUT.dcm", "#TARGET_FILE=D:\\Last.dcm",
                "#PIXEL_DATA_ROWS=3", "#PIXEL_DATA_COLS= -640 ", "#PIXEL_DATA_FILE=B.jpg", "#pixel_data_file=C=D.JPG",
                "#PIXEL_DATA_DIR=X\\*.jpg", "#REMOVE_EMPTY_ALL=1", "#REMOVE_EMPTY_GROUP=0010, 0012",
                "#REMOVE_EMPTY_GROUP=0014,", "#REMOVE_GROUP=0009", "#ANONYMIZE_GROUP=0010,0008",
                "#ANONYMIZE_55=0,first", "#ANONYMIZE_55= 1 , John Doe ,x",
                "#ANONYMIZE_55=", "#REMOVE_GROUP=0011\r\n0013"});
    const CDcmAttributeScript& script = read.script;
    EXPECT_EQ(script.SourceFile() + "|" + script.TargetFile(), "c:\\data\\a.dcm|d:\\last.dcm");
    EXPECT_EQ(script.RowsText() + "|" + script.ColsText() + "|" + script.RemoveEmptyAll(), "3|-640|1");
    EXPECT_EQ(script.Anonymize55First() + "|" + script.Anonymize55Second(), "1|John Doe");
    EXPECT_EQ(Lines(script.PixelDataFiles()), (Texts{"b.jpg", "c=d.jpg"}));
    EXPECT_EQ(Lines(script.PixelDataDirectories()), Texts{"x\\*.jpg"});
    EXPECT_EQ(Lines(script.RemoveEmptyGroups()), (Texts{"0010", "0012", "0014"}));
    EXPECT_EQ(Lines(script.RemoveGroups()), (Texts{"0009", "0011"}));
    EXPECT_EQ(Lines(script.AnonymizeGroups()), (Texts{"0010", "0008"}));
    EXPECT_EQ(read.notes, Texts{});
    EXPECT_EQ(read.module.GetCount(), 0);
}

TEST(Script, PassesOverOtherCommands)
{
    SRead read({"#Attribute Script Language(ASL)  anything", "#IOD_KIND=CCTImageIOD", "#iod_syntax=unknown", "#COUNT=1",
                "#COUNT_ALL=1", "#ATTRIBUTE_SET_BEGIN", "#SEQUENCE_BEGIN", "0010,0040,CS,1,x,[F,]", "#REMOVE_GROUPS=1",
                "#", "#ATTRIBUTE_SET_END"});
    EXPECT_EQ(read.Elements(), Texts{"0010,0040,CS,1,Patient's Sex,[F,]"});
    EXPECT_EQ(read.notes, (Texts{"6:1", "8:0", "9:0"}));
}

TEST(ScriptValues, ComeBackAsTheyWereWritten)
{
    for (const char* line :
         {"0010,0010,PN,1,Patient's Name,[DOE^JOHN,]", "0008,0008,CS,-1,Image Type,[A,,C,]",
          "0010,0020,LO,1,Patient ID,[ 7 ,]", "0010,0040,CS,1,Patient's Sex,[]", "0028,0010,US,1,Rows,[512,]",
          "0018,1624,US,3,Shutter Presentation Color CIELab Value,[1,2,65535,]",
          "0018,9219,SS,1,Tag Angle Second Axis,[65535,]", "0014,0202,AT,1,Data Element,[8,96,]",
          "0002,0037,UL,1,RTV Flow RTP Sampling Rate,[-1,]", "0018,6020,SL,1,Reference Pixel X0,[-2147483648,]",
          "0018,1320,FL,1,B1rms,[1.500000,]", "0066,0016,OF,1,Point Coordinates Data,[-1.500000,]",
          "0066,0016,OF,1,Point Coordinates Data,[inf,-inf,0.250000,]",
          "0002,0001,OB,1,File Meta Information Version,[0,1,]", "0002,0001,OB,1,File Meta Information Version,[AB~ ]",
          "0018,9079,FD,-1,Inversion Times,[0.000000,0.000000,]"})
    {
        EXPECT_EQ(Through(line), line);
    }
}

TEST(ScriptValues, AreConvertedByTheVrOfTheDictionary)
{
    EXPECT_EQ(ValueOf("0008,0008,CS,-1,Image Type,[,]"), "[]");
    EXPECT_EQ(ValueOf("0010,0020,US,1,Patient ID,[7,]"), "[7,] 5");
    EXPECT_EQ(ValueOf("0028,0010,US,1,Rows,[-1,]"), "[65535,]");
    EXPECT_EQ(ValueOf("0028,0010,US,1,Rows,[65537,]"), "[1,] 9");
    EXPECT_EQ(ValueOf("0028,0010,US,1,Rows,[1,x,3,]"), "[1,0,3,] 8");
    EXPECT_EQ(ValueOf("0002,0037,UL,1,x,[4294967295,]"), "[-1,]");
    EXPECT_EQ(ValueOf("0002,0037,UL,1,x,[99999999999999999999999,]"), "[-1,] 9");
    EXPECT_EQ(ValueOf("0002,0037,UL,1,x,[- 1,]"), "[0,] 8");
    // Bytes: what begins with a number is one.
    EXPECT_EQ(ValueOf("0002,0001,OB,1,x,[12AB]"), "[12,] 8");
    EXPECT_EQ(ValueOf("0002,0001,OB,1,x,[AB,C,67,]"), "[ABCC]");
    EXPECT_EQ(ValueOf("0002,0001,OB,1,x,[5001,-1,]"), "[137,255,] 9");
    // What text does not carry.
    EXPECT_EQ(ValueOf("0028,1201,OW,1,Red Palette Color Lookup Table Data,[1,2,]"), "[] 11");
    EXPECT_EQ(ValueOf("7fe0,0010,OW,1,Pixel Data,[frames,]"), ValueOf("7fe0,0010,OB,1,Pixel Data,[]") + " 11");
    EXPECT_EQ(Through("0072,006d,UN,1,Selector UN Value"), "0072,006d,UN,1,Selector UN Value 11");
}

TEST(ScriptValues, ADoubleTakesTheBitsOfAFloat)
{
    SRead read({"0018,9079,FD,-1,Inversion Times,[1.500000,]", "0018,9073,FD,1,Acquisition Duration,[-2,x,]"});
    const auto bits = [&](int index, int place)
    { return std::bit_cast<std::uint64_t>((*read.module.GetDcmElementSet().GetAt(index)->Doubles())[place]); };
    EXPECT_EQ(bits(0, 0), 0x3FC00000U);
    EXPECT_EQ(bits(1, 0), 0xC0000000U);
    EXPECT_EQ(bits(1, 1), 0U);
    EXPECT_EQ(read.notes, (Texts{"0:10", "1:10", "1:8"}));
}

TEST(ScriptValues, FloatsAreScannedAsTheCLibraryDoes)
{
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    // clang-format off
    const std::pair<const char*, float> kScans[] = {
        {"1.5", 1.5F}, {" -0", -0.0F}, {"-.5", -0.5F}, {"1E-3", 0.001F}, {"1e+2x", 100.0F}, {".", 0.0F},
        {"- 1", 0.0F}, {"+-1", 0.0F}, {"1e39", kInfinity}, {"-1e39", -kInfinity}, {"-1e-60", -0.0F}, {"0e999", 0.0F},
        {"1e9999999999999999999", kInfinity}, {"inf", kInfinity}, {"-INFINITY", -kInfinity},
        {"3.4028235e38", 3.4028235e38F}};
    // clang-format on
    for (const auto& [text, value] : kScans)
    {
        EXPECT_EQ(std::bit_cast<UINT>(FloatOf(text)), std::bit_cast<UINT>(value)) << text;
    }
    EXPECT_TRUE(std::isnan(FloatOf("nan")));
}

TEST(ScriptValues, ARepeatedTagAddsASingleValueAndReplacesByAList)
{
    SRead read({"0008,0008,CS,-1,Image Type,[A,]", "0008,0008,CS,-1,Image Type,[B,]", "0010,0020,LO,1,ID,[A,]",
                "0010,0020,LO,1,ID,[B,]", "0018,1624,US,3,Lab,[1,2,3,4,]", "0018,1624,US,3,Lab,[5,]",
                "0018,1623,US,1,Shutter,[1,2,]", "0018,1623,US,1,Shutter,[3,4,5,]"});
    EXPECT_EQ(read.Elements(), (Texts{"0008,0008,CS,-1,Image Type,[A,B,]", "0010,0020,LO,1,Patient ID,[B,]",
                                      "0018,1624,US,3,Shutter Presentation Color CIELab Value,[1,2,3,4,]",
                                      "0018,1623,US,1,Shutter Overlay Group,[3,4,5,]"}));
    EXPECT_EQ(read.notes, (Texts{"1:4", "3:4", "5:4", "5:12", "7:4"}));
}

TEST(ScriptItems, AreReadUpToTheirEnd)
{
    const Texts document = {"0008,1120,SQ,1,Referenced Patient Sequence,[2]",
                            "#SEQUENCE_BEGIN",
                            "   0008,1150,UI,1,Referenced SOP Class UID,[1.2,]",
                            "   0008,1140,SQ,1,Referenced Image Sequence,[1]",
                            "   #SEQUENCE_BEGIN",
                            "      0008,1155,UI,1,Referenced SOP Instance UID,[3,]",
                            "   #SEQUENCE_END",
                            "#SEQUENCE_END",
                            "0008,1110,SQ,1,Referenced Study Sequence,[0]",
                            "#SEQUENCE_BEGIN",
                            "#SEQUENCE_END",
                            "0010,0020,LO,1,Patient ID,[7,]"};
    SRead read(document);
    EXPECT_EQ(read.Elements(), document);
    EXPECT_EQ(read.notes, Texts{});
}

TEST(ScriptItems, OpenOnlyRightAfterTheirSequence)
{
    SRead read({"0008,1120,SQ,1,x,[1]", " # my Sequence_Begin here", "#PIXEL_DATA_ROWS=5", "0008,1150,UI,1,x,[1.2,]",
                "# sequence_end = x", "0008,1110,SQ,1,x,[1]", "0010,0020,LO,1,used up,[7,]", "0010,0040,CS,1,x,[F,]",
                "#SEQUENCE_END", "0010,0010,PN,1,never read,[A,]"});
    EXPECT_EQ(read.stopped, 8);
    EXPECT_EQ(read.module.GetCountAll(), 4);
    EXPECT_EQ(read.notes, (Texts{"6:13", "8:2"}));

    // Without its end an item reaches to the end of the script.
    SRead open({"0008,1120,SQ,1,x,[1]", "#SEQUENCE_BEGIN", "0008,1150,UI,1,x,[1.2,]"});
    EXPECT_EQ(open.stopped, 3);
    EXPECT_EQ(open.module.GetCountAll(), 2);
    EXPECT_EQ(open.notes, Texts{"1:14"});
}

TEST(ScriptItems, FollowTheVrOfTheirLineWhateverTheDictionarySays)
{
    // The dictionary learns the tag as OB, as it does when an implicit stream is read.
    SRead({"7775,1010,OB,1,x,[]"});
    SRead read({"0008,0060,CS,1,Modality,[CT,]", "7775,1010,SQ,1,x,[]", "#SEQUENCE_BEGIN",
                "   0008,0060,CS,1,Modality,[MR,]", "   0008,1140,SQ,1,x,[]", "   #SEQUENCE_BEGIN", "   #SEQUENCE_END",
                "#SEQUENCE_END", "0008,7771,SQ,1,unknown,[]", "#SEQUENCE_BEGIN", "   0010,0020,LO,1,Patient ID,[8,]",
                "#SEQUENCE_END", "0008,1140,FD,1,a sequence in the dictionary,[1,]",
                "0010,0010,PN,1,Patient's Name,[DOE^JOHN,]"});
    EXPECT_EQ(read.Elements(), (Texts{"0008,0060,CS,1,Modality,[CT,]", "7775,1010,OB,1,Private Data Element,[]",
                                      "0008,1140,SQ,1,Referenced Image Sequence,[0]", "#SEQUENCE_BEGIN",
                                      "#SEQUENCE_END", "0010,0010,PN,1,Patient's Name,[DOE^JOHN,]"}));
    EXPECT_EQ(read.notes, (Texts{"1:5", "2:16", "8:3", "9:16", "12:5"}));
}

TEST(ScriptItems, EndTheReadingBeyond64Levels)
{
    for (const int levels : {64, 65})
    {
        Texts document;
        for (int level = 0; level < levels; ++level)
        {
            document.insert(document.end(), {"0008,1140,SQ,1,Referenced Image Sequence,[1]", "#SEQUENCE_BEGIN"});
        }
        document.emplace_back("0010,0020,LO,1,Patient ID,[7,]");
        document.insert(document.end(), static_cast<std::size_t>(levels), "#SEQUENCE_END");
        document.emplace_back("0010,0040,CS,1,Patient's Sex,[F,]");
        SRead read(document);
        const bool isRead = levels == 64;
        EXPECT_EQ(read.module.GetCountAll(), isRead ? 66 : 65);
        EXPECT_EQ(read.stopped, static_cast<int>(document.size()));
        EXPECT_EQ(read.notes, isRead ? Texts{} : Texts{"129:15"});
    }
}

TEST(ScriptHostile, LongLinesAreRead)
{
    constexpr std::size_t kLong = std::size_t{1} << 21U;
    SRead read({std::string(kLong, ','), "#" + std::string(kLong, '='), "0010,0020,LO,1,x,[" + std::string(kLong, 'x'),
                "0018,1320,FL,1,x,[" + std::string(kLong, '1') + "]", "0018,1624,US,3,x,[" + std::string(kLong, ',')});
    EXPECT_EQ(read.module.GetDcmElementSet().Find(0x0010, 0x0020)->JoinedText().GetLength(), static_cast<int>(kLong));
}

TEST(Script, KeepsMarkedItemsByTheStandardRulesOnly)
{
    const Texts text = {"0008,1140,SQ,1,Referenced Image Sequence,[3]",
                        "#SEQUENCE_BEGIN",
                        "   #ITEM=1",
                        "   0008,1155,UI,1,Referenced SOP Instance UID,[1.1,]",
                        "   0040,a170,SQ,1,Purpose of Reference Code Sequence,[0]",
                        "   #SEQUENCE_BEGIN",
                        "      #ITEM=1",
                        "   #SEQUENCE_END",
                        "   #ITEM=2",
                        "   #ITEM=3",
                        "   0008,1155,UI,1,Referenced SOP Instance UID,[1.3,]",
                        "#SEQUENCE_END",
                        "0040,0275,SQ,1,Request Attributes Sequence,[1]",
                        "#SEQUENCE_BEGIN",
                        "   0040,1001,SH,1,Requested Procedure ID,[R1,]",
                        "#SEQUENCE_END",
                        "0040,0555,SQ,1,Acquisition Context Sequence,[0]",
                        "#SEQUENCE_BEGIN",
                        "#SEQUENCE_END"};
    SRead standard(text, 0, STREAM_RULES_STANDARD);
    EXPECT_EQ(standard.Elements(), text);
    EXPECT_EQ(standard.notes, Texts());
    EXPECT_EQ(standard.module.GetDcmElementSet().GetAt(0)->Items()->ItemCount(), 3);
    EXPECT_EQ(standard.module.GetDcmElementSet().GetAt(2)->Items()->ItemCount(), 0);

    SRead classic(text);
    EXPECT_EQ(classic.notes, Texts({"2:0", "6:0", "8:0", "9:0", "10:4"}));
    EXPECT_EQ(classic.Elements()[2], "   0008,1155,UI,1,Referenced SOP Instance UID,[1.3,]");
}

TEST(Script, NotesItemMarksOutOfOrder)
{
    SRead read({"#ITEM=1", "0008,1140,SQ,1,,[]", "#SEQUENCE_BEGIN", "0008,1155,UI,1,,[1.1,]", "#ITEM=1", "#ITEM=3",
                "#ITEM=2000000000", "#ITEM=-1", "#ITEM=two", "#item = 2", "0008,1155,UI,1,,[1.2,]", "#ITEM=2",
                "#SEQUENCE_END"},
               0, STREAM_RULES_STANDARD);
    EXPECT_EQ(read.notes, Texts({"0:17", "4:17", "5:17", "6:17", "7:17", "8:17", "11:17"}));
    EXPECT_EQ(read.module.GetDcmElementSet().GetAt(0)->Items()->ItemCount(), 2);
}
