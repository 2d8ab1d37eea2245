#include "Elements.h"
#include "Varnotix/asl/AslWriter.h"
#include "Varnotix/asl/DcmAttributeSet.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace
{

using Texts = std::vector<std::string>;

std::string LineOf(const CDcmElement& element)
{
    return std::string(AslElementLine(element).View());
}

std::string LineOf(int group, int element, const CByteArray& value)
{
    return LineOf(CDcmElement(group, element, value));
}

std::string FileText(const char* path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

TEST(AslLine, WritesTextsAsTheyAreEachBeforeAComma)
{
    EXPECT_EQ(LineOf(0x0010, 0x0010, TextBytes("DOE^JOHN")), "0010,0010,PN,1,Patient's Name,[DOE^JOHN,]");
    EXPECT_EQ(LineOf(0x0008, 0x0008, TextBytes("A\\\\C")), "0008,0008,CS,-1,Image Type,[A,,C,]");
    EXPECT_EQ(LineOf(CDcmElement(0x0010, 0x0040)), "0010,0040,CS,1,Patient's Sex,[]");
    EXPECT_EQ(LineOf(0x0010, 0x0020, TextBytes("a,b]")), "0010,0020,LO,1,Patient ID,[a,b],]");
    // The padding byte of a UID ends the text.
    EXPECT_EQ(LineOf(0x0008, 0x1150, TextBytes({"1.2\0", 4})), "0008,1150,UI,1,Referenced SOP Class UID,[1.2,]");
}

TEST(AslLine, WritesNumbersInTheirFixedForms)
{
    EXPECT_EQ(LineOf(0x0028, 0x0010, Bytes({0, 2})), "0028,0010,US,1,Rows,[512,]");
    EXPECT_EQ(LineOf(0x0018, 0x1624, Bytes({1, 0, 2, 0, 3, 0})),
              "0018,1624,US,3,Shutter Presentation Color CIELab Value,[1,2,3,]");
    EXPECT_EQ(LineOf(0x0018, 0x9219, Bytes({0xFF, 0xFF})), "0018,9219,SS,1,Tag Angle Second Axis,[65535,]");
    EXPECT_EQ(LineOf(0x0014, 0x0202, Bytes({8, 0, 0x60, 0})), "0014,0202,AT,1,Data Element,[8,96,]");
    EXPECT_EQ(LineOf(0x0028, 0x1201, Bytes({1, 2, 3})), "0028,1201,OW,1,Red Palette Color Lookup Table Data,[513,3,]");
    EXPECT_EQ(LineOf(0x0002, 0x0037, Bytes({0xFF, 0xFF, 0xFF, 0xFF})),
              "0002,0037,UL,1,RTV Flow RTP Sampling Rate,[-1,]");
    EXPECT_EQ(LineOf(0x0018, 0x1320, Bytes({0, 0, 0xC0, 0x3F})), "0018,1320,FL,1,B1rms,[1.500000,]");
    EXPECT_EQ(LineOf(0x0018, 0x9079, Bytes({0, 0, 0, 0, 0, 0, 4, 0xC0})),
              "0018,9079,FD,-1,Inversion Times,[-2.500000,]");
    CDcmElement largest(0x0018, 0x9079);
    largest.AddDouble(1e308);
    EXPECT_EQ(LineOf(largest).size(), std::string("0018,9079,FD,-1,Inversion Times,[").size() + 309 + 7 + 2);
}

TEST(AslLine, WritesPrintableBytesAsTextAndManyAsTheirCount)
{
    const std::string start = "0002,0001,OB,1,File Meta Information Version,[";
    EXPECT_EQ(LineOf(0x0002, 0x0001, TextBytes("AB~ ")), start + "AB~ ]");
    EXPECT_EQ(LineOf(0x0002, 0x0001, Bytes({65, 66, 0})), start + "65,66,0,]");
    EXPECT_EQ(LineOf(0x0002, 0x0001, Bytes({65, 127})), start + "65,127,]");
    EXPECT_EQ(LineOf(CDcmElement(0x0002, 0x0001)), start + "]");
    const std::string longest(5000, 'x');
    EXPECT_EQ(LineOf(0x0002, 0x0001, TextBytes(longest)), start + longest + "]");
    EXPECT_EQ(LineOf(0x0002, 0x0001, TextBytes(longest + "x")), start + "5001,]");
}

TEST(AslLine, EndsBehindTheNameWhereThereIsNoValueList)
{
    EXPECT_EQ(LineOf(0x0072, 0x006D, Bytes({1})), "0072,006d,UN,1,Selector UN Value");
    EXPECT_EQ(LineOf(CDcmElement(0x0008, 0x1120)), "0008,1120,SQ,1,Referenced Patient Sequence,[0]");
    EXPECT_EQ(LineOf(CDcmElement(0x0008, 0x7771)), "");
    EXPECT_EQ(LineOf(CDcmElement(0x0008, 0x7771, VR_LO)), "");
}

TEST(AslLines, BracketSequencesAndIndentThemALevelDeeper)
{
    CDcmElementSet set;
    set.Add(
        MakeSequence(0x0008, 0x1120,
                     {MakeText(0x0008, 0x1150, "1.2"), MakeSequence(0x0008, 0x1140, {MakeText(0x0008, 0x1155, "3")})}));
    set.Add(new CDcmElement(0x0008, 0x7771));
    set.Add(MakeText(0x0010, 0x0020, "7"));
    CStringArray lines;
    AslLines(set, lines);
    EXPECT_EQ(Lines(lines), (Texts{"0008,1120,SQ,1,Referenced Patient Sequence,[2]", "#SEQUENCE_BEGIN",
                                   "   0008,1150,UI,1,Referenced SOP Class UID,[1.2,]",
                                   "   0008,1140,SQ,1,Referenced Image Sequence,[1]", "   #SEQUENCE_BEGIN",
                                   "      0008,1155,UI,1,Referenced SOP Instance UID,[3,]", "   #SEQUENCE_END",
                                   "#SEQUENCE_END", "", "0010,0020,LO,1,Patient ID,[7,]"}));
}

TEST(AttributeSetExport, AppendsHeaderAndLines)
{
    CDcmAttributeSet set;
    set.GetDcmElementSet().Add(
        MakeSequence(0x0008, 0x1120,
                     {MakeText(0x0008, 0x1150, "1"), MakeText(0x0008, 0x1155, "2"), MakeText(0x0008, 0x0060, "CT")}));
    EXPECT_EQ(set.GetCount(), 1);
    EXPECT_EQ(set.GetCountAll(), 4);
    CStringArray lines;
    set.Export(lines);
    const Texts once = Lines(lines);
    ASSERT_EQ(once.size(), 9U);
    EXPECT_EQ(once[0], "#CDcmAttributeSet");
    EXPECT_EQ(once[1], "#count=1");
    EXPECT_EQ(once[2], "#count_all=4");
    EXPECT_EQ(once[4], "#SEQUENCE_BEGIN");
    set.Export(lines);
    EXPECT_EQ(lines.GetSize(), 18);

    set.Export(CString("set.asl"));
    std::string expected;
    for (const std::string& line : once)
    {
        expected += line + "\n";
    }
    EXPECT_EQ(FileText("set.asl"), expected);
    std::filesystem::remove("set.asl");
    EXPECT_NO_THROW(set.Export(CString("no such folder/set.asl")));
}

TEST(AttributeSetEmpty, ClearsTheValueAndKeepsTheElement)
{
    CDcmAttributeSet set;
    set.GetDcmElementSet().Add(MakeText(0x0010, 0x0020, "1"));
    set.GetDcmElementSet().Add(MakeText(0x0010, 0x0010, "A"));
    CDmElement record;
    set.Empty(record);
    set.Empty(static_cast<const CDmElement*>(nullptr));
    set.Empty(0x0010, 0x0030);
    record.m_group = 0x0010;
    record.m_element = 0x0010;
    set.Empty(&record);
    EXPECT_EQ(Listing(set.GetDcmElementSet()), (Texts{"00100020=1", "00100010="}));
    set.Sort();
    set.Empty(0x0010, 0x0020);
    EXPECT_EQ(Listing(set.GetDcmElementSet()), (Texts{"00100010=", "00100020="}));
}
