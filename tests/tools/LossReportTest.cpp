#include "ToolRunner.h"

#include <algorithm>

class LossReport : public ToolTest
{
protected:
    /// Rewrites a data set that is in explicit VR little endian, and returns what was said.
    static std::string Rewrite(const std::string& dataSet, const std::string& options)
    {
        Write("in.dcm", Part10(kExplicitUid, dataSet));
        return Expect(0, "convert --classic " + options + " in.dcm out.dcm").err;
    }
};

namespace
{

const std::string kImageReference = Explicit(0x00081150, "UI", "1.2.") + Explicit(0x00081155, "UI", "1.2.");
const std::string kTwoInOneItem = Explicit(0x00081140, "SQ", Item(kImageReference) + Item(kImageReference));

} // namespace

TEST_F(LossReport, OneLineSumsUpAndVerboseGivesALineAnElement)
{
    const std::string lossy = Explicit(0x00080000, "UL", LittleEndian(4, 4)) +
                              Explicit(0x00080008, "CS", "ORIGINAL\\\\PRIMARY\\") + kTwoInOneItem +
                              Explicit(0x00091001, "UN", "1234") + Explicit(0x00091002, "UN", "12");
    EXPECT_EQ(Rewrite(lossy, "-s explicit"),
              "varnotix: in.dcm: written with changes: 1 sequence regrouped, 2 UN values lost, "
              "1 list without its empty values, 1 group length removed (use -v)\n");
    EXPECT_EQ(Rewrite(lossy, "-q -s explicit"), "");
    const std::string lines = Rewrite(lossy, "-v -s explicit");
    EXPECT_TRUE(Holds(lines, "varnotix: in.dcm: (0008,0000) ", ": removed\n",
                      "varnotix: in.dcm: (0008,0008) Image Type: empty values are dropped\n",
                      "varnotix: in.dcm: (0008,1140) Referenced Image Sequence at offset ",
                      ": regrouped, one item per element (2 items read)\n",
                      "varnotix: in.dcm: (0009,1001) Private Data Element: value of 4 bytes lost\n"));
    EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 5);
}

TEST_F(LossReport, AnEmptySequenceIsNoLossForWhatFollowsIt)
{
    // Undefined length, for an empty sequence of defined length takes in the element after it when it is read.
    const auto emptySequence = [](unsigned long tag)
    { return Tag(tag) + "SQ" + LittleEndian(0, 2) + LittleEndian(0xFFFFFFFF, 4) + Implicit(0xFFFEE0DD, ""); };
    const std::string name = Explicit(0x00100010, "PN", "Doe^Jane") + Explicit(0x00100020, "LO", "P1");
    EXPECT_EQ(Rewrite(emptySequence(0x00081110) + emptySequence(0x00081140) + name, "-s explicit"), "");
    EXPECT_TRUE(Read("out.dcm").ends_with(Explicit(0x00081140, "SQ", "") + name));

    EXPECT_TRUE(Holds(Rewrite(Explicit(0x00081140, "SQ", "") + name, "-s explicit"),
                      "1 sequence with elements from after its end"));
}

TEST_F(LossReport, ValuesAndVrsThatOthersWillSeeOtherwiseAreToldOf)
{
    EXPECT_TRUE(Holds(Rewrite(Explicit(0x00280010, "US", "\1\2\3"), "-v -s explicit"),
                      "(0028,0010) Rows: value of 3 bytes is written as another one of 2\n"));
    const std::string privates = Explicit(0x00090010, "LO", "MAKER ") + Explicit(0x00091001, "DS", "1.5 ");
    EXPECT_EQ(Rewrite(privates, "-s explicit"), "");
    EXPECT_TRUE(Holds(Rewrite(privates, "-s implicit"), "written with changes: 1 VR not stated"));
    EXPECT_TRUE(Holds(Rewrite(Explicit(0x00280106, "SS", "\1\2"), "-v -s explicit"), "VR SS replaced by"));
    const std::string oneEach = Explicit(0x00081140, "SQ", Item(Explicit(0x00081150, "UI", "1.2.")));
    EXPECT_TRUE(Holds(Rewrite(oneEach, "-s big"), "1 sequence that other readers may not read"));

    Write("in.dcm", Part10(kRleUid, Encapsulated(LittleEndian(0, 4), {"AAAA"})));
    Expect(0, "--classic convert -s explicit in.dcm out.dcm",
           "1 offset table changed, 1 compressed frame without item headers");
}

TEST_F(LossReport, FaultsOfTheInputThatAreMendedAreNamed)
{
    // An odd length, unknown letters for a VR, a wrong group length, and a tag that comes too late.
    const std::string broken = Explicit(0x00100000, "UL", LittleEndian(99, 4)) + Explicit(0x00100010, "PN", "Doe") +
                               Explicit(0x00100020, "ZZ", "P1") + kTwoInOneItem;
    Write("in.dcm", Part10(kExplicitUid, broken));
    Expect(0, "convert in.dcm out.dcm", "written with changes: 1 group length remade, 3 faults of the input mended");
    Expect(0, "convert -v in.dcm out.dcm", "(0010,0000)", "its odd length of 3 bytes is made even",
           "an unknown VR is written as UN", "(0008,1140) Referenced Image Sequence at offset ",
           "it is moved to its place in the order of tags");
    EXPECT_TRUE(HoldsInOrder(Read("out.dcm"), kTwoInOneItem, Explicit(0x00100010, "PN", "Doe "),
                             Explicit(0x00100020, "UN", "P1")));
    EXPECT_EQ(Expect(0, "convert out.dcm again.dcm").err, "");
    EXPECT_EQ(Read("again.dcm"), Read("out.dcm"));
}
