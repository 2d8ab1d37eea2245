// The verb "check" on objects that follow the standard, and on ones with one fault each.

#include "ToolRunner.h"

namespace
{

using Check = ToolTest;

/// A secondary capture image of 2 x 2 pixels that has all that its modules require, with one part exchanged.
std::string Image(const std::string& part = "", const std::string& other = "")
{
    std::string set =
        Explicit(0x00080005, "CS", "ISO_IR 100") + Explicit(0x00080016, "UI", PaddedUid("1.2.840.10008.5.1.4.1.1.7"));
    set += Explicit(0x00080018, "UI", PaddedUid("1.2.3")) + Explicit(0x00080020, "DA", "20260131") +
           Explicit(0x00080030, "TM", "1200") + Explicit(0x00080050, "SH", "") + Explicit(0x00080060, "CS", "OT") +
           Explicit(0x00080064, "CS", "WSD ") + Explicit(0x00080090, "PN", "") + Explicit(0x00100010, "PN", "A^B ") +
           Explicit(0x00100020, "LO", "1 ") + Explicit(0x00100030, "DA", "") + Explicit(0x00100040, "CS", "") +
           Explicit(0x0020000D, "UI", PaddedUid("1.2.4")) + Explicit(0x0020000E, "UI", PaddedUid("1.2.5")) +
           Explicit(0x00200010, "SH", "") + Explicit(0x00200011, "IS", "") + Explicit(0x00200013, "IS", "") +
           Us(0x00280002, 1) + Explicit(0x00280004, "CS", "MONOCHROME2 ") + Us(0x00280010, 2) + Us(0x00280011, 2) +
           Us(0x00280100, 8) + Us(0x00280101, 8) + Us(0x00280102, 7) + Us(0x00280103, 0) +
           Explicit(0x7FE00010, "OB", "1234");
    const std::size_t place = set.find(part);
    EXPECT_NE(place, std::string::npos);
    set.replace(place, part.size(), other);
    const std::string meta = Explicit(0x00020001, "OB", std::string("\0\1", 2)) +
                             Explicit(0x00020002, "UI", PaddedUid("1.2.840.10008.5.1.4.1.1.7")) +
                             Explicit(0x00020003, "UI", PaddedUid("1.2.3")) +
                             Explicit(0x00020010, "UI", PaddedUid(kExplicitUid)) +
                             Explicit(0x00020012, "UI", PaddedUid("1.2.9"));
    return std::string(128, '\0') + "DICM" + Explicit(0x00020000, "UL", LittleEndian(meta.size(), 4)) + meta + set;
}

std::string ImageOfClass(const char* uid)
{
    return Image(Explicit(0x00080016, "UI", PaddedUid("1.2.840.10008.5.1.4.1.1.7")),
                 Explicit(0x00080016, "UI", PaddedUid(uid)));
}

} // namespace

TEST_F(Check, FindsNothingInAGoodFileAndEachFaultOfABadOne)
{
    // Of a VR that the library's codes do not name.
    const std::string code = Tag(0x00080119) + "UC" + LittleEndian(0, 2) + LittleEndian(4, 4) + "code";
    Write("good.dcm", Image(Explicit(0x00100010, "PN", "A^B "), code + Explicit(0x00100010, "PN", "A^B ")));
    EXPECT_EQ(Expect(0, "check good.dcm", "0 errors, 0 warnings").out, "");

    struct SCase
    {
        std::string part;
        std::string other;
        const char* finding; ///< Without file name and severity.
    };
    const std::string patient = Explicit(0x00100020, "LO", "1 ");
    const std::string references =
        Explicit(0x00081140, "SQ", Item(Explicit(0x00081150, "UI", PaddedUid("1.2.840.10008.5.1.4.1.1.7"))));
    const SCase cases[] = {
        {patient, "", "PatientID (0010,0020): missing, but type 2 in the module Patient"},
        {Explicit(0x00080064, "CS", "WSD "), Explicit(0x00080064, "CS", "  "),
         "ConversionType (0008,0064): empty, but type 1 in the module SC Equipment"},
        {Explicit(0x00080090, "PN", ""), Explicit(0x00080090, "PN", "") + references,
         "ReferencedImageSequence[1].ReferencedSOPInstanceUID (0008,1155): missing, but type 1 in the module General "
         "Image"},
        {Explicit(0x00080020, "DA", "20260131"), Explicit(0x00080020, "DA", "20260231"), "StudyDate (0008,0020): "},
        {"ISO_IR 100", "ISO_IR 999", "SpecificCharacterSet (0008,0005): there is no character set ISO_IR 999"},
        {"1.2.5", "9.2.5", "SeriesInstanceUID (0020,000E): '9.2.5' is not a UID: it has no registered root"},
        {"1.2.5", "1.2.4", "SeriesInstanceUID (0020,000E): the same UID as StudyInstanceUID (0020,000D)"},
        {Explicit(0x00080018, "UI", PaddedUid("1.2.3")), Explicit(0x00080018, "UI", PaddedUid("1.2.7")),
         "MediaStorageSOPInstanceUID (0002,0003): 1.2.3 is not SOPInstanceUID (0008,0018), which is 1.2.7"},
        {Explicit(0x00100040, "CS", ""), Explicit(0x00100040, "CS", "") + Explicit(0x00111001, "LO", "x "),
         "(0011,1001): its private block has no creator (0011,0010)"},
        {Explicit(0x00080060, "CS", "OT"), Explicit(0x00080060, "CS", "OTO"),
         "Modality (0008,0060): its length of 3 bytes is odd"},
        {Us(0x00280102, 7), Us(0x00280102, 6), "HighBit (0028,0102): not one less than Bits Stored"},
        {Explicit(0x7FE00010, "OB", "1234"), Explicit(0x7FE00010, "OB", "123456"),
         "PixelData (7FE0,0010): 6 bytes, where the description of the image makes 4"},
    };
    for (const SCase& one : cases)
    {
        Write("bad.dcm", Image(one.part, one.other));
        const std::string out = Run("check bad.dcm").out;
        EXPECT_TRUE(Holds(out, std::string("bad.dcm: error: ") + one.finding)) << out;
        EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 1) << out;
        EXPECT_EQ(Expect(10, "check bad.dcm", "1 error, 0 warnings").out, out);
    }
}

TEST_F(Check, AnswersWithTheWorstOfItsInputs)
{
    Write("good.dcm", Image());
    Write("other.dcm", ImageOfClass("1.2.840.10008.5.1.4.1.1.2"));
    const std::string whole = Image();
    Write("cut.dcm", whole.substr(0, whole.size() - 2));
    Expect(10, "check good.dcm other.dcm", "errors");
    const SRun run = Run("check cut.dcm good.dcm");
    EXPECT_EQ(run.status, 20);
    EXPECT_TRUE(Holds(run.out, "cut.dcm: error: PixelData (7FE0,0010): the read ended here"));
    EXPECT_EQ(Expect(20, "check missing.dcm").err.find("0 errors"), std::string::npos);

    // A class without rules gets those of every object, and a warning, which -q leaves out.
    Write("plan.dcm", ImageOfClass("1.2.840.10008.5.1.4.1.1.481.5"));
    const std::string out = Run("check plan.dcm").out;
    EXPECT_TRUE(Holds(out, "warning: SOPClassUID (0008,0016): of the modules of RT Plan Storage"));
    EXPECT_EQ(Run("check -q plan.dcm").out.find("warning"), std::string::npos);
}
