// What independent tools make of the files that the library writes.
#if !defined(_WIN32)

#include "Sample.h"
#include "Varnotix/platform/Archive.h"

#include <algorithm>
#include <iterator>
#include <sstream>

namespace
{

/// Runs a shell command; its status, and what it printed on its standard output.
std::pair<int, std::string> Shell(const std::string& command)
{
    const int status = std::system(("LC_ALL=C " + command + " >tool.txt").c_str());
    const CByteArray bytes = FileBytes("tool.txt");
    std::remove("tool.txt");
    return {status, std::string(bytes.begin(), bytes.end())};
}

void Save(CDcmIOD& object, const std::string& path)
{
    CFile file(path.c_str(), CFile::modeCreate | CFile::modeWrite);
    CArchive archive(&file, CArchive::store);
    object.Serialize(archive);
}

/// True when the tool reads the file to its end and reports no error.
bool Accepts(const char* tool, const std::string& path)
{
    const auto [status, errors] = Shell("sh -c \"" + std::string(tool) + " '" + path + "' 2>&1 >/dev/null\"");
    return status == 0 && errors.find("E: ") == std::string::npos && errors.find("rror") == std::string::npos;
}

/// Tag, VR and value of each top-level element as dcmdump prints them, without group lengths, sequences and pixel data.
/// Private elements are left out: their VRs are those of whichever file the library met first.
std::map<std::string, std::string> TopLevelValues(const std::string& path)
{
    constexpr std::size_t kTagSize = 11;
    std::map<std::string, std::string> values;
    std::istringstream lines(Shell("dcmdump '" + path + "' 2>/dev/null").second);
    for (std::string line; std::getline(lines, line);)
    {
        const bool isElement = line.size() > kTagSize + 3 && line[0] == '(' && line[kTagSize - 1] == ')';
        const std::string tag = isElement ? line.substr(1, kTagSize - 2) : "";
        const bool isPrivate = isElement && std::string_view("13579bdf").find(tag[3]) != std::string_view::npos;
        if (!isElement || isPrivate || tag.substr(0, 4) == "fffe" || tag.substr(5) == "0000" || tag == "7fe0,0010" ||
            line.substr(kTagSize + 1, 2) == "SQ")
        {
            continue;
        }
        line.erase(line.rfind('#')); // Length, multiplicity and name.
        line.erase(line.find_last_not_of(' ') + 1);
        values[tag] = line.substr(kTagSize);
    }
    return values;
}

std::string DifferentTags(const std::string& left, const std::string& right)
{
    const auto before = TopLevelValues(left);
    const auto after = TopLevelValues(right);
    std::map<std::string, std::string> different; // Values of either side.
    std::set_symmetric_difference(before.begin(), before.end(), after.begin(), after.end(),
                                  std::inserter(different, different.end()));
    std::string text;
    for (const auto& [tag, value] : different)
    {
        text += (text.empty() ? "" : " ") + tag;
    }
    return text;
}

/// What the library's own rules make other tools question, or show otherwise.
struct SQuestion
{
    const char* refusedBy; ///< d: dcmdump, g: gdcmdump.
    const char* tags;      ///< Top-level elements that differ from those of the input.
};

const std::map<std::string, SQuestion> kQuestions = {
    // One encapsulated frame is written with a defined length.
    {"693_J2KI.dcm", {"dg", ""}},
    {"JPEG-lossy.dcm", {"dg", ""}},
    {"JPEG2000.dcm", {"dg", ""}},
    {"MR_small_RLE.dcm", {"d", ""}},
    {"SC_rgb_jpeg_gdcm.dcm", {"d", ""}},
    {"SC_rgb_rle.dcm", {"d", ""}},
    {"SC_rgb_rle_16bit.dcm", {"d", ""}},
    // Item lengths in big endian have their halves in little endian order.
    {"SC_rgb_small_odd_big_endian.dcm", {"dg", ""}},
    // A sequence inside an item has a defined length and a delimiter as well.
    {"badVR.dcm", {"g", ""}},
    {"liver_1frame.dcm", {"g", ""}},
    {"reportsi.dcm", {"g", ""}},
    // The same; and a sequence that the input holds with a length of 0 took the element that follows it.
    {"CT0012.bot_rle.dcm", {"g", "2050,0020"}},
    {"test-SR.dcm", {"g", "0010,0010 0040,a491"}},
    // A value that may be US or SS is written as US.
    {"CT1_UNC.explicit_big_endian.dcm", {"", "0028,0120"}},
    {"CT_small.dcm", {"", "0028,0120"}},
    {"MR_small.dcm", {"", "0028,0106 0028,0107"}},
    {"MR_small_bigendian.dcm", {"", "0028,0106 0028,0107"}},
    {"MR_small_expb.dcm", {"", "0028,0106 0028,0107"}},
    {"MR_small_padded.dcm", {"", "0028,0106 0028,0107"}},
    {"mr_0004__axial_epi_fmri_interleaved_i_to_s-00001.dcm", {"", "0028,0106 0028,0107"}},
    {"mr_0005__axial_epi_fmri_sequential_i_to_s-00001.dcm", {"", "0028,0106 0028,0107"}},
    {"mr_0006__axial_epi_fmri_interleaved_s_to_i-00001.dcm", {"", "0028,0106 0028,0107"}},
    {"mr_0007__axial_epi_fmri_sequential_s_to_i-00001.dcm", {"", "0028,0106 0028,0107"}},
    // An empty text between two values goes; overlay data that may be OB or OW is written as OB.
    {"examples_overlay.dcm", {"", "0008,0008 6000,3000"}},
};

} // namespace

TEST(SampleOtherTools, ReadWhatTheLibraryWritesAndShowTheSameValues)
{
    SKIP_WITHOUT_SAMPLES();
    if (Shell("which dcmdump gdcmdump").first != 0)
    {
        GTEST_SKIP() << "dcmdump and gdcmdump are not installed";
    }
    static const char* const kUids[] = {"", "1.2.840.10008.1.2", "1.2.840.10008.1.2.1", "", "1.2.840.10008.1.2.2"};
    const std::string path = "written.dcm";
    ForEachSample(
        [&path](CDcmIOD& object, const std::string& name)
        {
            object.IodSyntax(CString(kUids[object.IodSyntax()]));
            Save(object, path);
            const auto found = kQuestions.find(name);
            const SQuestion question = found != kQuestions.end() ? found->second : SQuestion{"", ""};
            const bool refused = !Accepts("dcmdump", path);
            EXPECT_EQ(std::string(refused ? "d" : "") + (Accepts("gdcmdump", path) ? "" : "g"), question.refusedBy);
            if (!refused)
            {
                EXPECT_EQ(DifferentTags((SampleFolder() / name).string(), path), question.tags);
            }
        });
    std::remove(path.c_str());
}

#endif
