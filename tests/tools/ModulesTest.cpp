#include "ToolRunner.h"

namespace
{

class Modules : public ToolTest
{
protected:
    static std::string ModulesOf(const std::string& dataSet, const std::string& arguments = "")
    {
        Write("in.dcm", Part10(kExplicitUid, dataSet));
        return Expect(0, "modules in.dcm " + arguments).out;
    }
};

const std::string kCt = Explicit(0x00080016, "UI", PaddedUid("1.2.840.10008.5.1.4.1.1.2"));
const std::string kReference = Explicit(0x00081110, "SQ", Item(Explicit(0x00081150, "UI", PaddedUid("1.2.3"))));

} // namespace

TEST_F(Modules, AttributesAreInTheirModuleAndEntity)
{
    const std::string text = ModulesOf(kCt + kReference + Explicit(0x00091001, "LO", "secret") +
                                       Explicit(0x00100010, "PN", "Doe^Jane") + Explicit(0x00180060, "DS", "120 "));
    EXPECT_EQ(Read("err.txt"), "");
    EXPECT_TRUE(HoldsInOrder(
        text, "object CCTImageIOD\n", "entity File\n", "  module CDcmMetaFileInformation\n", "\nentity Patient\n",
        "  module CDcmPatientModule\n", "    Patient's Name (0010,0010) PN: Doe^Jane\n", "entity Study\n",
        "\n    Referenced Study Sequence (0008,1110) SQ:",
        "\n      item 1\n        Referenced SOP Class UID (0008,1150) UI: 1.2.3\n", "entity Image\n",
        "  module CDcmSOPCommonModule\n", "    SOP Class UID (0008,0016) UI: 1.2.840.10008.5.1.4.1.1.2\n",
        "  module CDcmCTImageModule\n", "    KVP (0018,0060) DS: 120\n", "attributes that no module declares\n",
        "(0009,1001) LO: secret\n"));
    EXPECT_EQ(text.find("absent"), std::string::npos);
    EXPECT_TRUE(Holds(ModulesOf(kCt + kReference, "--gaps"),
                      "\n        Referenced SOP Instance UID (0008,1155) UI: absent\n",
                      "\n    Patient's Name (0010,0010) PN: absent\n",
                      "\n    SOP Class UID (0008,0016) UI: 1.2.840.10008.5.1.4.1.1.2\n"));
}

TEST_F(Modules, ValuesArePrintedByTheirKind)
{
    EXPECT_TRUE(Holds(
        ModulesOf(Explicit(0x00100010, "PN", "Doe\x1B[2J^J ") + Explicit(0x00100010, "PN", "Twice ") +
                  Explicit(0x00189219, "SS", LittleEndian(0xFFFE, 2)) +
                  Explicit(0x00186020, "SL", LittleEndian(0xFFFFFFFF, 4)) +
                  Explicit(0x00280009, "AT", Tag(0x00181063)) + Explicit(0x00281201, "OW", std::string(40, '\1')) +
                  Explicit(0x7FE00010, "OW", std::string(8, '\1'))),
        "PN: Doe.[2J^J\n", "PN: Twice\n", "SS: -2\n", "SL: -1\n", "AT: 0018\\1063\n", "257\\257\\... (20 values)\n",
        "(7FE0,0010) OW: 1 frame, 8 bytes\n")); // Nothing that a terminal obeys.
}
