// The example hosts, run as programs, and the README, which shows one of them.

#include "Varnotix/Varnotix.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace
{

std::filesystem::path FolderOf(const char* variable)
{
    const char* value = std::getenv(variable);
    return value != nullptr ? value : ".";
}

std::string ReadText(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The status of an example that is run with its standard output in out.txt.
int StatusOf(const std::string& example, const std::string& argument)
{
    std::string command =
        "\"" + (FolderOf("VARNOTIX_BIN") / example).string() + "\" " + argument + " >out.txt 2>err.txt";
    if (std::filesystem::path::preferred_separator == '\\')
    {
        command = "\"" + command + "\""; // The shell there takes off the outermost quotes.
    }
    const int status = std::system(command.c_str());
    return status > 0xFF ? status >> 8 : status;
}

void Import(const std::string& path, CDcmIOD& object)
{
    CFile file(path.c_str(), CFile::modeRead);
    CArchive archive(&file, CArchive::load);
    object.Serialize(archive);
}

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
    Import("phantom.dcm", object);
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
}

TEST(ExamplePhantom, TellsAWrongCallAndAFolderThatIsMissingApart)
{
    EXPECT_EQ(StatusOf("example_phantom", ""), 1);
    EXPECT_EQ(StatusOf("example_phantom", "no-such-folder/phantom.dcm"), 40);
}

TEST(ExampleReadPatient, PrintsTheNameAndRefusesWhatIsNoObject)
{
    ASSERT_EQ(StatusOf("example_phantom", "phantom.dcm"), 0);
    EXPECT_EQ(StatusOf("example_read_patient", "phantom.dcm"), 0);
    const std::string out = ReadText("out.txt");
    EXPECT_EQ(out.substr(0, out.find_first_of("\r\n")), "Phantom^Disc");
    EXPECT_EQ(StatusOf("example_read_patient", "no-such-file.dcm"), 20);
    EXPECT_EQ(StatusOf("example_read_patient", "out.txt"), 20);
}

TEST(Readme, ShowsTheExampleAsItStands)
{
    const std::filesystem::path project = FolderOf("VARNOTIX_DATA").parent_path();
    const std::string example = ReadText(project / "examples" / "read_patient" / "read_patient.cpp");
    ASSERT_FALSE(example.empty());
    EXPECT_NE(ReadText(project / "README.md").find("```cpp\n" + example + "```\n"), std::string::npos);
}
