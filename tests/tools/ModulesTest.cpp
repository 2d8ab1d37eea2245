#include "ToolRunner.h"

namespace
{

std::string SopClass(const std::string& uid)
{
    return Explicit(0x00080016, "UI", PaddedUid(uid));
}

/// The line of a printed object that begins so, but for the blanks before it; with them.
std::string LineOf(const std::string& text, const std::string& start)
{
    std::size_t place = text.find(start);
    if (place == std::string::npos)
    {
        return "no line '" + start + "'";
    }
    const std::size_t begin = text.rfind('\n', place) + 1;
    return text.substr(begin, text.find('\n', place) - begin);
}

class Modules : public ToolTest
{
protected:
    SRun ModulesOf(const std::string& dataSet, const std::string& arguments = "")
    {
        Write("in.dcm", Part10(kExplicitUid, dataSet));
        return Run("modules in.dcm " + arguments);
    }
};

const std::string kCt = SopClass("1.2.840.10008.5.1.4.1.1.2");

} // namespace

TEST_F(Modules, AttributesStandInTheirModuleAndEntity)
{
    const SRun run = ModulesOf(kCt + Explicit(0x00081110, "SQ", Item(Explicit(0x00081150, "UI", PaddedUid("1.2.3")))) +
                               Explicit(0x00091001, "LO", "secret") + Explicit(0x00100010, "PN", "Doe^Jane") +
                               Explicit(0x00180060, "DS", "120 "));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    // Where the places follow each other, each attribute is below the right headings.
    std::size_t place = 0;
    for (const std::string line :
         {"object CCTImageIOD\n", "entity File\n", "\n  module CDcmMetaFileInformation\n", "\nentity Patient\n",
          "\n  module CDcmPatientModule\n", "\n    Patient's Name (0010,0010) PN: Doe^Jane\n", "entity Study\n",
          "entity Image\n", "\n  module CDcmSOPCommonModule\n",
          "\n    SOP Class UID (0008,0016) UI: 1.2.840.10008.5.1.4.1.1.2\n", "\n  module CDcmCTImageModule\n",
          "\n    KVP (0018,0060) DS: 120\n", "\nattributes that no module declares\n", "(0009,1001) LO: secret\n"})
    {
        const std::size_t found = run.out.find(line, place == 0 ? 0 : place - 1);
        ASSERT_NE(found, std::string::npos) << line << " in\n" << run.out;
        place = found + line.size();
    }
    const std::string sequence = LineOf(run.out, "Referenced Study Sequence (0008,1110) SQ:");
    const std::string item = LineOf(run.out, "Referenced SOP Class UID (0008,1150) UI: 1.2.3");
    EXPECT_EQ(item.find('R'), sequence.find('R') + 2) << run.out;
    EXPECT_EQ(run.out.find("absent"), std::string::npos);
}

TEST_F(Modules, GapsAreNamedWhereTheyAreAskedFor)
{
    const SRun run =
        ModulesOf(kCt + Explicit(0x00081110, "SQ", Item(Explicit(0x00081150, "UI", PaddedUid("1.2.3")))), "--gaps");
    EXPECT_EQ(LineOf(run.out, "Referenced SOP Instance UID"),
              "      Referenced SOP Instance UID (0008,1155) UI: absent");
    EXPECT_EQ(LineOf(run.out, "Patient's Name"), "    Patient's Name (0010,0010) PN: absent");
    EXPECT_EQ(LineOf(run.out, "SOP Class UID (0008,0016"),
              "    SOP Class UID (0008,0016) UI: 1.2.840.10008.5.1.4.1.1.2");
}

TEST_F(Modules, ValuesArePrintedByTheirKind)
{
    const SRun run = ModulesOf(
        Explicit(0x00100010, "PN", "Doe\x1B[2J^J ") + Explicit(0x00189219, "SS", LittleEndian(0xFFFE, 2)) +
        Explicit(0x00186020, "SL", LittleEndian(0xFFFFFFFF, 4)) + Explicit(0x00280009, "AT", Tag(0x00181063)) +
        Explicit(0x00281201, "OW", std::string(40, '\1')) + Explicit(0x7FE00010, "OW", std::string(8, '\1')));
    EXPECT_TRUE(Holds(run.out, "PN: Doe.[2J^J\n")); // Nothing that a terminal obeys.
    EXPECT_TRUE(Holds(run.out, "SS: -2\n"));
    EXPECT_TRUE(Holds(run.out, "SL: -1\n"));
    EXPECT_TRUE(Holds(run.out, "AT: 0018\\1063\n"));
    EXPECT_TRUE(Holds(run.out, "257\\257\\... (20 values)\n"));
    EXPECT_TRUE(Holds(run.out, "(7FE0,0010) OW: 1 frame, 8 bytes\n"));
}

TEST_F(Modules, ATagThatStandsThereTwiceIsPrintedTwice)
{
    const SRun run = ModulesOf(kCt + Explicit(0x00100010, "PN", "One ") + Explicit(0x00100010, "PN", "Two "));
    EXPECT_TRUE(Holds(run.out, "PN: One\n"));
    EXPECT_TRUE(Holds(run.out, "PN: Two\n"));
}

TEST_F(Modules, FailuresHaveTheirStatus)
{
    Write("bad.dcm", "this is no DICOM object at all");
    EXPECT_EQ(Run("modules bad.dcm").status, 20);
    EXPECT_EQ(Run("modules").status, 1);
    if (std::filesystem::exists("/dev/full"))
    {
        Write("in.dcm", Part10(kExplicitUid, kCt));
        EXPECT_EQ(RunTo("/dev/full", "modules in.dcm").status, 40);
    }
}
