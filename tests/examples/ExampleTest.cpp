// The example hosts, run as programs.

#include "Programs.h"
#include "Varnotix/Varnotix.h"

#include <gtest/gtest.h>

TEST(ExamplePhantom, WritesAnObjectThatItsReaderTakes)
{
    ASSERT_EQ(StatusOf("example_phantom", "phantom.dcm"), 0) << ReadText("err.txt");
    CDcmIOD object;
    CFile file("phantom.dcm", CFile::modeRead);
    CArchive archive(&file, CArchive::load);
    object.Serialize(archive);
    EXPECT_EQ(object.IodSyntax(), SYNTAX_EXPLICIT_LITTLE);
    EXPECT_TRUE(object.ReadNotes().empty());
    const CDcmElement* pixels = object.ElementStore().Find(0x7FE0, 0x0010);
    ASSERT_NE(pixels, nullptr);
    EXPECT_EQ(pixels->Vr(), VR_OW);
    ASSERT_EQ(pixels->Frames()->TotalSize(), 64U * 64U * 2U);
    const auto pixel = [bytes = pixels->Frames()->GetFrame(0)->Data()](int x, int y)
    { return bytes[2 * (y * 64 + x)] | bytes[2 * (y * 64 + x) + 1] << 8; };
    EXPECT_EQ(pixel(32, 32), 4095);
    EXPECT_LT(pixel(10, 0), pixel(60, 0));
    EXPECT_EQ(StatusOf("example_phantom", "no-such-folder/phantom.dcm"), 40);

    EXPECT_EQ(StatusOf("example_read_patient", "phantom.dcm"), 0);
    EXPECT_EQ(ReadOutput(), "Phantom^Disc\n");
    EXPECT_EQ(StatusOf("example_read_patient", "no-such-file.dcm"), 20);
    EXPECT_EQ(StatusOf("example_read_patient", "out.txt"), 20);
}
