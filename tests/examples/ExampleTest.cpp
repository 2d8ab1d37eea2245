// The example hosts, run as programs.

#include "Programs.h"
#include "Varnotix/Varnotix.h"

#include <gtest/gtest.h>

namespace
{

WORD Pixel(const CDcmFrame& frame, int x, int y)
{
    const BYTE* bytes = frame.Data() + 2 * (y * 64 + x);
    return static_cast<WORD>(bytes[0] | bytes[1] << 8);
}

} // namespace

TEST(ExamplePhantom, WritesAnExplicitLittleEndianFileWithADiscOnARamp)
{
    ASSERT_EQ(StatusOf("example_phantom", "phantom.dcm"), 0) << ReadText("err.txt");
    CDcmIOD object;
    CFile file("phantom.dcm", CFile::modeRead);
    CArchive archive(&file, CArchive::load);
    object.Serialize(archive);
    EXPECT_EQ(object.IodSyntax(), SYNTAX_EXPLICIT_LITTLE);
    EXPECT_TRUE(object.ReadNotes().empty());
    const CDcmElement* imageType = object.ElementStore().Find(0x0008, 0x0008);
    ASSERT_NE(imageType, nullptr);
    EXPECT_EQ(imageType->Texts()->GetSize(), 2);

    const CDcmElement* pixels = object.ElementStore().Find(0x7FE0, 0x0010);
    ASSERT_NE(pixels, nullptr);
    EXPECT_EQ(pixels->Vr(), VR_OW);
    ASSERT_EQ(pixels->Frames()->TotalSize(), 64U * 64U * 2U);
    const CDcmFrame& frame = *pixels->Frames()->GetFrame(0);
    EXPECT_EQ(Pixel(frame, 32, 32), 4095);
    EXPECT_EQ(Pixel(frame, 0, 0), 0);
    EXPECT_LT(Pixel(frame, 10, 0), Pixel(frame, 60, 0));

    EXPECT_EQ(StatusOf("example_phantom", ""), 1);
    EXPECT_EQ(StatusOf("example_phantom", "no-such-folder/phantom.dcm"), 40);
}

TEST(ExampleReadPatient, PrintsTheNameAndRefusesWhatIsNoObject)
{
    ASSERT_EQ(StatusOf("example_phantom", "phantom.dcm"), 0);
    EXPECT_EQ(StatusOf("example_read_patient", "phantom.dcm"), 0);
    EXPECT_EQ(ReadOutput(), "Phantom^Disc\n");
    EXPECT_EQ(StatusOf("example_read_patient", "no-such-file.dcm"), 20);
    EXPECT_EQ(StatusOf("example_read_patient", "out.txt"), 20);
}
