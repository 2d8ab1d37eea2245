#include "Sample.h"

#include <array>
#include <fstream>

namespace
{

/// CRC-32 (ISO 3309), as archives and pictures use it.
class CCrc
{
public:
    void Add(const BYTE* bytes, std::size_t size)
    {
        static const std::array<DWORD, 256> table = []
        {
            std::array<DWORD, 256> made{};
            for (DWORD i = 0; i < 8 * made.size(); ++i)
            {
                DWORD& entry = made[i / 8];
                entry = i % 8 == 0 ? i / 8 : entry;
                entry = (entry & 1U) != 0 ? (entry >> 1U) ^ 0xEDB88320U : entry >> 1U;
            }
            return made;
        }();
        for (std::size_t i = 0; i < size; ++i)
        {
            m_crc = table[(m_crc ^ bytes[i]) & 0xFFU] ^ (m_crc >> 8U);
        }
    }
    DWORD Value() const { return ~m_crc; }

private:
    DWORD m_crc = 0xFFFFFFFFU;
};

/// The line that tells of a file what the list of expectations tells of it.
std::string Measured(const std::string& name)
{
    CDcmIOD object;
    object.Import(FileBytes(SampleFolder() + "/" + name));
    int frames = 0;
    std::uint64_t size = 0;
    CCrc crc;
    const CDcmElement* pixels = object.ElementStore().Find(0x7FE0, 0x0010);
    if (pixels != nullptr)
    {
        for (; frames < pixels->Frames()->GetCount(); ++frames)
        {
            const CDcmFrame& frame = *pixels->Frames()->GetFrame(frames);
            crc.Add(frame.Data(), frame.Size());
            size += frame.Size();
        }
    }
    std::string trials;
    for (const SReadTrial& trial : object.ReadTrials())
    {
        trials += (trials.empty() ? "" : " ") + Text("%d:%d@%u", trial.syntax, trial.fault, trial.offset);
    }
    const bool read = object.IodSyntax() != SYNTAX_UNKNOWN;
    return name + "\t" + (read ? std::to_string(object.IodSyntax()) : "-") + "\t" + std::to_string(object.GetCount()) +
           "\t" + std::to_string(object.GetCountAll()) + "\t" + std::to_string(frames) + "\t" + std::to_string(size) +
           "\t" + Text("%08x", crc.Value()) + "\t" + trials;
}

} // namespace

TEST(SampleRead, EveryFileIsReadAsTheListOfExpectationsTells)
{
    SKIP_WITHOUT_SAMPLES();
    std::ifstream list(SampleFolder() + "/expected.tsv");
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
