// What rewrites keep of real files, and what independent readers make of the outputs.
#if !defined(_WIN32)

#include "ToolRunner.h"

#include <functional>
#include <map>
#include <set>
#include <sstream>

namespace
{

/// Samples that are not rewritten byte for byte, and why they cannot be.
const std::map<std::string, std::string> kBroken = {
    {"693_J2KI", "group lengths are wrong: PS3.5 section 7.2"},
    {"image_dfl", "eight bytes follow the deflated data set: PS3.5 section A.5"},
    {"meta_missing_tsyntax", "no Transfer Syntax UID: PS3.10 section 7.1; an odd length: PS3.5 section 7.1.1"},
    {"MR_truncated", "cut off"},
    {"nested_priv_SQ", "an odd length: PS3.5 section 7.1.1"},
    {"no_meta", "not DICOM: bytes of its beginning are missing"},
    {"no_meta_group_length", "no group length of group 0002: PS3.10 section 7.1"},
    {"rtplan_truncated", "cut off"},
};

class SampleRewrite : public ToolTest
{
protected:
    void SetUp() override
    {
        const std::filesystem::path folder = SampleFolder();
        if (folder.empty())
        {
            GTEST_SKIP() << "VARNOTIX_SAMPLES names no folder of sample files";
        }
        for (const auto& entry : std::filesystem::directory_iterator(folder))
        {
            if (entry.path().extension() == ".dcm")
            {
                m_samples[entry.path().stem().string()] = entry.path().string();
            }
        }
    }

    /// Converts every sample to every syntax, and calls the function for each output with its name and its input.
    void ForEachOutput(const std::function<void(const std::string&, const std::string&)>& check)
    {
        int written = 0;
        for (const auto& [name, path] : m_samples)
        {
            for (const std::string syntax : {"implicit", "explicit", "big", "deflated"})
            {
                const std::string output = name + "." + syntax;
                const SRun run = Run("convert -s " + syntax + " \"" + path + "\" " + output);
                const bool isRefused = run.err.find("cut off") != std::string::npos ||
                                       run.err.find("not DICOM") != std::string::npos ||
                                       run.err.find("is compressed") != std::string::npos;
                EXPECT_EQ(run.status != 0, isRefused && !std::filesystem::exists(output)) << output << ": " << run.err;
                if (run.status == 0)
                {
                    ++written;
                    check(output, path);
                }
            }
        }
        EXPECT_GT(written, 100);
    }

    /// The lines in which a tool reports errors of a file, without the name of the file.
    static std::set<std::string> Complaints(const std::string& tool, const std::string& path)
    {
        std::system(("LC_ALL=C " + tool + " \"" + path + "\" >tool.txt 2>&1").c_str());
        std::set<std::string> complaints;
        std::istringstream lines(Read("tool.txt"));
        for (std::string line; std::getline(lines, line);)
        {
            const std::size_t place = line.find(path);
            if (line.starts_with("E: ") || line.find("Error") != std::string::npos)
            {
                complaints.insert(place == std::string::npos ? line : line.erase(place, path.size()));
            }
        }
        return complaints;
    }

    std::map<std::string, std::string> m_samples;
};

} // namespace

TEST_F(SampleRewrite, InItsOwnSyntaxAFileKeepsItsBytes)
{
    for (const auto& [name, path] : m_samples)
    {
        const SRun run = Run("convert -v \"" + path + "\" out.dcm");
        const bool isSame = run.status == 0 && Read("out.dcm") == Read(path);
        EXPECT_EQ(isSame, !kBroken.contains(name)) << name << ": " << run.err;
        EXPECT_TRUE(isSame || !run.err.empty()) << name << " changes without a word";
        std::filesystem::remove("out.dcm");
    }
}

TEST_F(SampleRewrite, InEverySyntaxAnotherReaderFindsTheSameObject)
{
    if (std::system("/usr/bin/python3 -c 'import pydicom' 2>err.txt") != 0)
    {
        GTEST_SKIP() << "pydicom is not installed";
    }
    std::string pairs;
    ForEachOutput(
        [&pairs](const std::string& output, const std::string& input)
        {
            // pydicom reads the items of UN, which are in little endian, in the byte order of what is around them.
            pairs += output == "UN_sequence.big" ? "" : input + "\n" + output + "\n";
        });
    Write("pairs.txt", pairs);
    const std::string script = (ProjectFolder() / "tests/samples/equal_objects.py").string();
    EXPECT_EQ(std::system(("/usr/bin/python3 \"" + script + "\" <pairs.txt >differences.txt").c_str()), 0);
    EXPECT_EQ(Read("differences.txt"), "");
}

TEST_F(SampleRewrite, OtherToolsComplainOfNothingThatTheInputHasNot)
{
    for (const std::string tool : {"dcmdump", "gdcmdump", "dciodvfy"})
    {
        if (std::system(("which " + tool + " >which.txt").c_str()) != 0)
        {
            GTEST_SKIP() << tool << " is not installed";
        }
    }
    std::map<std::string, std::set<std::string>> known; // By tool and input.
    ForEachOutput(
        [&known](const std::string& output, const std::string& input)
        {
            for (const std::string tool : {"dcmdump", "gdcmdump", "dciodvfy"})
            {
                // dciodvfy cannot inflate, and takes the items of UN for big endian ones.
                const bool isBeyond =
                    output.ends_with(".deflated") || output.starts_with("image_dfl") || output == "UN_sequence.big";
                if ((tool == "dciodvfy" && isBeyond) || Read(output) == Read(input))
                {
                    continue;
                }
                const auto [place, isNew] = known.try_emplace(tool + input);
                if (isNew)
                {
                    place->second = Complaints(tool, input);
                }
                for (const std::string& complaint : Complaints(tool, output))
                {
                    EXPECT_TRUE(place->second.contains(complaint)) << output << ": " << tool << ": " << complaint;
                }
            }
        });
}

#endif
