// What is left of real patients' objects, and what an independent program makes of the outputs.
#if !defined(_WIN32)

#include "ToolRunner.h"

#include <regex>
#include <set>
#include <sstream>

namespace
{

/// Texts that an attribute of the profile has, and another that it keeps: a manufacturer, digits of numbers.
const std::set<std::string> kElsewhere = {"TOSHIBA", "0010", "123456", "0.000000"};

/// Files that dciodvfy cannot read before, but can after.
const std::set<std::string> kUnreadByOthers = {"image_dfl", "meta_missing_tsyntax", "nested_priv_SQ"};

class DeidentifySample : public ToolTest
{
protected:
    /// The values of four characters or more that the profile removes or replaces.
    static std::set<std::string> IdentifyingTexts(CDcmIOD& object)
    {
        std::set<std::string> texts;
        Varnotix::WalkElements(object.ElementStore(),
                               [&](const Varnotix::SWalkPlace& place)
                               {
                                   const DWORD tag = place.element.Tag();
                                   const bool isListed =
                                       !Varnotix::Tag::IsPrivate(tag) &&
                                       Varnotix::ProfileAction(tag, 0) != Varnotix::EProfileAction::None;
                                   const CStringArray* values = place.element.Texts();
                                   for (int i = 0; isListed && values != nullptr && i < values->GetSize(); ++i)
                                   {
                                       CString text((*values)[i].CText());
                                       text.Trim();
                                       texts.insert(std::string(text.View()));
                                   }
                                   return Varnotix::EWalk::Enter;
                               });
        std::erase_if(texts, [](const std::string& text)
                      { return text.size() < 4 || kElsewhere.contains(text) || text.starts_with("1.2.840.10008."); });
        return texts;
    }

    static std::string PixelBytes(const CDcmIOD& object)
    {
        const CDcmElement* found = object.ElementStore().Find(0x7FE00010);
        const CDcmFrameList* frames = found != nullptr ? found->Frames() : nullptr;
        std::string bytes;
        for (int i = 0; frames != nullptr && i < frames->GetCount(); ++i)
        {
            bytes.append(reinterpret_cast<const char*>(frames->GetFrame(i)->Data()), frames->GetFrame(i)->Size());
        }
        return bytes;
    }

    static std::set<std::string> Complaints(const std::string& path)
    {
        std::set<std::string> lines;
        std::system(("LC_ALL=C dciodvfy -new \"" + path + "\" >complaints.txt 2>&1").c_str());
        std::istringstream text(ReadText("complaints.txt"));
        for (std::string line; std::getline(text, line);)
        {
            if (line.starts_with("Error"))
            {
                lines.insert(std::regex_replace(line, std::regex("<[0-9.]+>"), "<UID>"));
            }
        }
        return lines;
    }
};

} // namespace

TEST_F(DeidentifySample, NoIdentifyingTextIsLeftAndPixelsStay)
{
    const std::filesystem::path folder = SampleFolder();
    if (folder.empty())
    {
        GTEST_SKIP() << "VARNOTIX_SAMPLES names no folder of sample files";
    }
    int written = 0;
    std::filesystem::create_directories("out");
    // A fixed one: the digits of random UIDs have a short old text in them now and then.
    Write("key.txt", "The key of the tests, which protects nothing");
    for (const auto& entry : std::filesystem::directory_iterator(folder))
    {
        const std::string name = entry.path().stem().string();
        if (entry.path().extension() != ".dcm")
        {
            continue;
        }
        SCOPED_TRACE(name);
        const SRun run =
            Run("deidentify --accept-pixels \"" + entry.path().string() + "\" -o out/" + name + " --key key.txt");
        std::string output;
        for (const auto& file : std::filesystem::recursive_directory_iterator("out"))
        {
            const std::string path = file.path().string();
            output = file.is_regular_file() && path.starts_with("out/" + name + "/") ? path : output;
        }
        EXPECT_EQ(output.empty(), run.status == 20) << run.err;
        if (output.empty())
        {
            continue;
        }
        ++written;
        ASSERT_EQ(Run("convert -s explicit \"" + output + "\" plain.dcm").status, 0); // Inflated where it is deflated.
        ASSERT_EQ(Run("convert -s explicit --force \"" + entry.path().string() + "\" old.dcm").status, 0);
        CDcmIOD before;
        CDcmIOD after;
        ReadByStandard("plain.dcm", after);
        ReadByStandard("old.dcm", before);
        const std::string bytes = Read("plain.dcm");
        const std::set<std::string> texts = IdentifyingTexts(before);
        for (const std::string& text : texts)
        {
            EXPECT_EQ(bytes.find(text), std::string::npos) << text;
        }
        EXPECT_EQ(PixelBytes(after) == PixelBytes(before), true);
        if (!kUnreadByOthers.contains(name))
        {
            const std::set<std::string> old = Complaints(entry.path().string());
            for (const std::string& complaint : Complaints(output))
            {
                EXPECT_TRUE(old.contains(complaint)) << complaint;
            }
        }
    }
    EXPECT_GT(written, 40);
}

#endif
