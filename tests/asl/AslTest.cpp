// Elements and sets written as text.
#include "Elements.h"
#include "Programs.h"
#include "Varnotix/asl/AslWriter.h"
#include "Varnotix/modules/DcmAttributeSet.h"

#include <gtest/gtest.h>

namespace
{

using Texts = std::vector<std::string>;

std::string LineOf(const CDcmElement& element)
{
    return std::string(Varnotix::AslElementLine(element).View());
}

std::string LineOf(int group, int element, const CByteArray& value)
{
    return LineOf(CDcmElement(group, element, value));
}

} // namespace

TEST(AslLine, ShowsTagVrNameAndValues)
{
    EXPECT_EQ(LineOf(0x0010, 0x0020, TextBytes("a,b]")), "0010,0020,LO,1,Patient ID,[a,b],]");
    // The padding byte of a UID ends the text.
    EXPECT_EQ(LineOf(0x0008, 0x1150, TextBytes({"1.2\0", 4})), "0008,1150,UI,1,Referenced SOP Class UID,[1.2,]");
    EXPECT_EQ(LineOf(0x0028, 0x1201, Bytes({1, 2, 3})), "0028,1201,OW,1,Red Palette Color Lookup Table Data,[513,3,]");
    const std::string doubles = "0018,9079,FD,-1,Inversion Times,[";
    EXPECT_EQ(LineOf(0x0018, 0x9079, Bytes({0, 0, 0, 0, 0, 0, 4, 0xC0})), doubles + "-2.500000,]");
    CDcmElement largest(0x0018, 0x9079);
    largest.AddDouble(1e308);
    EXPECT_EQ(LineOf(largest).size(), doubles.size() + 309 + 7 + 2);
    // Printable bytes are text, and many are their count.
    const std::string start = "0002,0001,OB,1,File Meta Information Version,[";
    EXPECT_EQ(LineOf(0x0002, 0x0001, Bytes({65, 66, 0})), start + "65,66,0,]");
    EXPECT_EQ(LineOf(0x0002, 0x0001, Bytes({65, 127})), start + "65,127,]");
    const std::string longest(5000, 'x');
    EXPECT_EQ(LineOf(0x0002, 0x0001, TextBytes(longest)), start + longest + "]");
    EXPECT_EQ(LineOf(0x0002, 0x0001, TextBytes(longest + "x")), start + "5001,]");
    // Without a value list the line ends after the name; without an entry there is none.
    EXPECT_EQ(LineOf(0x0072, 0x006D, Bytes({1})), "0072,006d,UN,1,Selector UN Value");
    EXPECT_EQ(LineOf(CDcmElement(0x0008, 0x7771)), "");
    EXPECT_EQ(LineOf(CDcmElement(0x0008, 0x7771, VR_LO)), "");
}

TEST(AttributeSetExport, AppendsHeaderAndLines)
{
    CDcmAttributeSet set;
    set.GetDcmElementSet().Add(
        MakeSequence(0x0008, 0x1120,
                     {MakeText(0x0008, 0x1150, "1"), MakeText(0x0008, 0x1155, "2"), MakeText(0x0008, 0x0060, "CT")}));
    set.GetDcmElementSet().Add(new CDcmElement(0x0008, 0x7771)); // Unknown: an empty line.
    CStringArray lines;
    set.Export(lines);
    EXPECT_EQ(Lines(lines),
              (Texts{"#CDcmAttributeSet", "#count=2", "#count_all=5", "0008,1120,SQ,1,Referenced Patient Sequence,[3]",
                     "#SEQUENCE_BEGIN", "   0008,1150,UI,1,Referenced SOP Class UID,[1,]",
                     "   0008,1155,UI,1,Referenced SOP Instance UID,[2,]", "   0008,0060,CS,1,Modality,[CT,]",
                     "#SEQUENCE_END", ""}));
    set.Export(lines);
    EXPECT_EQ(lines.GetSize(), 20);
    set.Export(CString("set.asl"));
    const std::string written = ReadText("set.asl");
    std::filesystem::remove("set.asl");
    EXPECT_TRUE(written.starts_with("#CDcmAttributeSet\n#count=2\n") && written.ends_with("\n#SEQUENCE_END\n\n"));
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
}
