#include "ToolRunner.h"

using List = ToolTest;

namespace
{

const std::string kCreator = Explicit(0x00090010, "LO", "ACME") + Explicit(0x00091001, "SH", "private ");

/// A request with two steps, the second one with an identifier.
const std::string kRequest =
    Explicit(0x00400275, "SQ", Item(Explicit(0x00400009, "SH", "S1")) + Item(Explicit(0x00400009, "SH", "S2")));

std::string Object(const std::string& name, const std::string& number)
{
    return Part10(kExplicitUid, Explicit(0x00080005, "CS", "ISO_IR 100") +
                                    Explicit(0x00080008, "CS", "ORIGINAL\\AXIAL ") + Explicit(0x00080060, "CS", "MR") +
                                    kCreator + Explicit(0x00100010, "PN", name) + Explicit(0x00100020, "LO", "") +
                                    Explicit(0x00200013, "IS", number) + Us(0x00280010, 512) + kRequest +
                                    Explicit(0x7FE00010, "OW", std::string(8, '\0')));
}

/// An argument for the shell of either system.
std::string Quoted(const std::string& text)
{
    std::string quoted = "\"";
    for (const char c : text)
    {
        quoted += c == '"' ? "\\\"" : std::string(1, c);
    }
    return quoted + '"';
}

} // namespace

TEST_F(List, ShowsAttributesByKeywordTagAndPath)
{
    Write("in.dcm", Object("M\xFCller^A ", "7 "));
    const std::pair<const char*, const char*> kCases[] = {
        {"PatientName", "PatientName\r\nin.dcm,Müller^A\r\n"},
        {"0010,0010,Rows", "PatientName,Rows\r\nin.dcm,Müller^A,512\r\n"},
        {"(0010,0020),00280010", "PatientID,Rows\r\nin.dcm,,512\r\n"},
        {"ImageType,StudyDate", "ImageType,StudyDate\r\nin.dcm,ORIGINAL\\AXIAL,\r\n"},
        {"RequestAttributesSequence[2].0040,0009",
         "RequestAttributesSequence[2].ScheduledProcedureStepID\r\nin.dcm,S2\r\n"},
        {"RequestAttributesSequence[].00400009",
         "RequestAttributesSequence[].ScheduledProcedureStepID\r\nin.dcm,S1\\S2\r\n"},
        {"0040,0275", "RequestAttributesSequence\r\nin.dcm,2 items\r\n"},
        {"7FE00010", "PixelData\r\nin.dcm,8 bytes\r\n"},
        {"(0009,\"ACME\",01)", "\"(0009,\"\"ACME\"\",01)\"\r\nin.dcm,private\r\n"},
    };
    for (const auto& [attributes, csv] : kCases)
    {
        EXPECT_EQ(Expect(0, "list --csv -t " + Quoted(attributes) + " in.dcm").out, std::string("File,") + csv);
    }
    Expect(1, "list -t NoSuchName in.dcm", "-t: 'NoSuchName' is not an attribute");
    Expect(1, "list -t PatientName,RequestAttributesSequence[1].PatientNmae in.dcm",
           "; the keyword nearest to 'PatientNmae' is 'PatientName'");
    Expect(1, "list -t PatientName, in.dcm", "-t: '' is not an attribute");
}

TEST_F(List, ShowsTheFilesThatMeetAllConditions)
{
    Write("in.dcm", Object("Doe^Jane", "7 "));
    const std::pair<const char*, bool> kCases[] = {
        {"Modality=MR", true},
        {"Modality = CT", false},
        {"Modality==MR", true},
        {"Modality!=CT", true},
        {"Modality!=MR", false},
        {"InstanceNumber=7.0", true},
        {"InstanceNumber<10", true},
        {"InstanceNumber>10", false},
        {"InstanceNumber<=7", true},
        {"InstanceNumber>=8", false},
        {"Rows>100", true},
        {"ImageType=AXIAL", true},
        {"ImageType!=AXIAL", false},
        {"PatientName~^Doe.J", true},
        {"PatientName~^Jane", false},
        {"PatientID=", true},
        {"StudyDate=", true},
        {"StudyDate<2020", false},
        {"StudyDate!=20200101", true},
        {"(0009,\"ACME\",01)=private", true},
        {"RequestAttributesSequence[].00400009=S2", true},
    };
    for (const auto& [condition, isListed] : kCases)
    {
        const std::string out = Expect(0, "list -w " + Quoted(condition) + " in.dcm").out;
        EXPECT_EQ(out.find("in.dcm") != std::string::npos, isListed) << condition;
    }
    EXPECT_EQ(Expect(0, "list -w Modality=MR -w Rows=1 in.dcm").out, "");
    Expect(1, "list -w Modality in.dcm", "-w: 'Modality': there is no operator in it");
    Expect(1, "list -w Nothing=1 in.dcm", "'Nothing' is not an attribute");
    Expect(1, "list -w \"Modality~(\" in.dcm", "'(' is not a regular expression");
}

TEST_F(List, HasAFormForPeopleAndTwoForPrograms)
{
    std::filesystem::create_directories("study/inner");
    Write("study/a.dcm", Object("Doe, \"J\"", "7 "));
    Write("study/inner/b.dcm", Object("\x1B[31mred ", "12"));
    Write("study/notes.txt", "no elements in here");
    const std::string tail = " -t PatientName,ImageType,InstanceNumber,PatientID study";
    const std::string note = "1 file in the folders is not DICOM, and was skipped";
    EXPECT_EQ(Expect(0, "list" + tail, note).out,
              "File               PatientName  ImageType       InstanceNumber  PatientID\n"
              "study/a.dcm        Doe, \"J\"     ORIGINAL\\AXIAL  7\n"
              "study/inner/b.dcm  .[31mred     ORIGINAL\\AXIAL  12\n");
    EXPECT_EQ(Expect(0, "list --csv" + tail).out, "File,PatientName,ImageType,InstanceNumber,PatientID\r\n"
                                                  "study/a.dcm,\"Doe, \"\"J\"\"\",ORIGINAL\\AXIAL,7,\r\n"
                                                  "study/inner/b.dcm,\x1B[31mred,ORIGINAL\\AXIAL,12,\r\n");
    EXPECT_EQ(Expect(0, "list -j 2 --jsonl" + tail).out,
              R"({"file":"study/a.dcm","PatientName":"Doe, \"J\"","ImageType":["ORIGINAL","AXIAL"],"InstanceNumber":7,)"
              R"("PatientID":null})"
              "\n"
              R"({"file":"study/inner/b.dcm","PatientName":"\u001b[31mred","ImageType":["ORIGINAL","AXIAL"],)"
              R"("InstanceNumber":12,"PatientID":null})"
              "\n");
    EXPECT_EQ(Expect(0, "list -q --plain" + tail).out,
              "Doe, \"J\"\tORIGINAL\\AXIAL\t7\t\n [31mred\tORIGINAL\\AXIAL\t12\t\n");
    EXPECT_EQ(Expect(0, "list -q --plain -t InstanceNumber,File -w InstanceNumber=7 study").out, "7\tstudy/a.dcm\n");
    EXPECT_EQ(Expect(0, "list -q --csv -t InstanceNumber,File study/a.dcm").out,
              "InstanceNumber,File\r\n7,study/a.dcm\r\n");
    Expect(20, "list study/notes.txt", "not DICOM");
    Expect(1, "list --csv --jsonl study", "exclude each other");
}

TEST_F(List, ReadsNoFurtherThanItNeeds)
{
    // What is wrong with the pixel data does not matter, nor do attributes after the last one that is asked for.
    const std::string whole = Object("Doe", "7 ");
    Write("cut.dcm", whole.substr(0, whole.size() - 5));
    EXPECT_TRUE(Holds(Expect(0, "list cut.dcm").out, "Doe"));
    Expect(20, "list -t PixelData cut.dcm", "cut off");

    // An icon with pixel data of its own, larger than what is read first.
    const std::string icon = Explicit(
        0x00880200, "SQ",
        Item(Tag(0x7FE00010) + "OW" + LittleEndian(0, 2) + LittleEndian(100000, 4) + std::string(100000, '\0')));
    const std::string rest = Explicit(0x20100010, "ST", "after ");
    Write("icon.dcm", Part10(kExplicitUid, Explicit(0x00080060, "CS", "MR") + icon + rest + std::string(200000, '\0')));
    EXPECT_TRUE(Holds(Expect(0, "list -t 20100010 icon.dcm").out, "after"));
}
