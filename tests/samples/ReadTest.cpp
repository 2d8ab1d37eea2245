#include "Sample.h"

#include <fstream>

namespace
{

/// CRC-32 (ISO 3309) of the bytes before, inverted, and of these.
DWORD AddToCrc(DWORD crc, const CDcmFrame& frame)
{
    for (std::size_t i = 0; i < frame.Size(); ++i)
    {
        crc ^= frame.Data()[i];
        for (int bit = 0; bit < 8; ++bit)
        {
            crc = (crc & 1U) != 0 ? (crc >> 1U) ^ 0xEDB88320U : crc >> 1U;
        }
    }
    return crc;
}

/// The line about a file as the list of expectations has it.
std::string Measured(const std::string& name)
{
    CDcmIOD object;
    object.Import(FileBytes((SampleFolder() / name).string()));
    int frames = 0;
    std::size_t size = 0;
    DWORD crc = ~0U;
    const CDcmElement* pixels = object.ElementStore().Find(0x7FE0, 0x0010);
    for (; pixels != nullptr && frames < pixels->Frames()->GetCount(); ++frames)
    {
        const CDcmFrame& frame = *pixels->Frames()->GetFrame(frames);
        crc = AddToCrc(crc, frame);
        size += frame.Size();
    }
    const bool read = object.IodSyntax() != SYNTAX_UNKNOWN;
    return name + "\t" + (read ? std::to_string(object.IodSyntax()) : "-") + "\t" + std::to_string(object.GetCount()) +
           "\t" + std::to_string(object.GetCountAll()) + "\t" + std::to_string(frames) + "\t" + std::to_string(size) +
           "\t" + Text("%08x", ~crc) + "\t" + TrialsText(object.ReadTrials());
}

} // namespace

TEST(SampleRead, EveryFileIsReadAsTheListOfExpectationsSays)
{
    SKIP_WITHOUT_SAMPLES();
    std::ifstream list(SampleFolder() / "expected.tsv");
    ASSERT_TRUE(list.is_open());
    int files = 0;
    for (std::string line; std::getline(list, line);)
    {
        if (!line.empty() && line.front() != '#')
        {
            EXPECT_EQ(Measured(line.substr(0, line.find('\t'))), line);
            ++files;
        }
    }
    EXPECT_GT(files, 40);
}
