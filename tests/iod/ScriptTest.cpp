// Objects from text.
#include "Elements.h"
#include "Varnotix/iod/ImageIODs.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace
{

using Texts = std::vector<std::string>;

/// A file that is there as long as the test needs it.
class CScratchFile
{
public:
    CScratchFile(const std::string& path, const std::string& content) : m_path(path)
    {
        std::ofstream(path, std::ios::binary) << content;
    }
    ~CScratchFile() { std::filesystem::remove(m_path); }
    CScratchFile(const CScratchFile&) = delete;
    CScratchFile& operator=(const CScratchFile&) = delete;

private:
    std::filesystem::path m_path;
};

} // namespace

TEST(ImportFromAsl, TakesWhatAnExportWrote)
{
    CMRImageIOD written;
    Fill(written.ElementStore(),
         {MakeText(0x0008, 0x0008, "ORIGINAL"),
          MakeSequence(0x0008, 0x1120, {MakeText(0x0008, 0x1150, "1.2"), MakeWord(0x0028, 0x0010, 7)}),
          MakeText(0x0010, 0x0010, "DOE^JOHN"), MakeWord(0x0028, 0x0011, 65535)});
    const CScratchFile file("object.asl", "");
    written.Export(CString("object.asl"));

    CMRImageIOD read;
    Fill(read.ElementStore(), {MakeText(0x0010, 0x0040, "F")});
    read.ImportFromASL("object.asl");
    EXPECT_TRUE(read.ElementStore() == written.ElementStore());
    EXPECT_EQ(read.GetCountAll(), 6);
    EXPECT_TRUE(read.ScriptNotes().empty());
    CDcmModule* patient = read.FindModule(RUNTIME_CLASS(CDcmPatientModule));
    ASSERT_NE(patient, nullptr);
    EXPECT_EQ(static_cast<CDcmPatientModule*>(patient)->PatientName(), "DOE^JOHN");
}

TEST(ImportFromAsl, LeavesTheObjectWhenThereIsNothingToTake)
{
    const CScratchFile file("commands.asl", "#SOURCE_FILE=none\r\n; no element\r\n#NONSENSE\r\n");
    CDcmIOD object;
    Fill(object.ElementStore(), {MakeText(0x0010, 0x0040, "F")});
    object.ImportFromASL("commands.asl");
    ASSERT_EQ(object.ScriptNotes().size(), 1U);
    EXPECT_EQ(object.ScriptNotes()[0].line, 2);
    EXPECT_EQ(object.ScriptNotes()[0].kind, SCRIPT_UNKNOWN_COMMAND);
    object.ImportFromASL("there is no such file");
    object.ImportFromASL(".");
    EXPECT_TRUE(object.ScriptNotes().empty());
    EXPECT_EQ(Listing(object.ElementStore()), Texts{"00100040=F"});
}
