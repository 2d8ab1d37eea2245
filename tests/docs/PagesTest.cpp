// The pages show code that is built, link to what is there, and name what the programs know.

#include "Programs.h"
#include "Varnotix/iod/DcmIOD.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <set>
#include <vector>

namespace
{

using Texts = std::vector<std::string>;

/// The text of a file of the project.
std::string TextOf(const std::filesystem::path& path)
{
    return ReadText(ProjectFolder() / path);
}

/// README.md, CHANGELOG.md and everything in docs/.
std::vector<std::filesystem::path> AllPages()
{
    std::vector<std::filesystem::path> pages = {"README.md", "CHANGELOG.md"};
    for (const auto& entry : std::filesystem::directory_iterator(ProjectFolder() / "docs"))
    {
        if (entry.path().extension() == ".md")
        {
            pages.push_back(std::filesystem::path("docs") / entry.path().filename());
        }
    }
    return pages;
}

std::string WithoutIndents(const std::string& text)
{
    return std::regex_replace(text, std::regex("\n +"), "\n");
}

/// The content of each fenced block of a language, in order.
Texts Blocks(const std::string& page, const std::string& language)
{
    const std::string fence = "\n```" + language + "\n";
    Texts blocks;
    for (std::size_t place = 0; (place = page.find(fence, place)) != std::string::npos;)
    {
        place += fence.size();
        blocks.push_back(page.substr(place, page.find("\n```", place) + 1 - place));
    }
    return blocks;
}

/// The first group of each match, once each.
std::set<std::string> Matches(const std::string& text, const char* pattern)
{
    const std::regex expression(pattern);
    return {std::sregex_token_iterator(text.begin(), text.end(), expression, 1), {}};
}

} // namespace

TEST(Pages, ShowCodeThatIsBuilt)
{
    Texts sources;
    for (const char* folder : {"examples", "Varnotix/catalogue"})
    {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(ProjectFolder() / folder))
        {
            sources.push_back(entry.is_regular_file() ? "\n" + WithoutIndents(ReadText(entry.path())) : "");
        }
    }
    int shown = 0;
    for (const std::filesystem::path& page : AllPages())
    {
        for (const std::string& block : Blocks(WithoutIndents(TextOf(page)), "cpp"))
        {
            const auto holds = [&](const std::string& source)
            { return source.find("\n" + block) != std::string::npos; };
            EXPECT_TRUE(std::any_of(sources.begin(), sources.end(), holds)) << page << ": no source holds\n" << block;
            ++shown;
        }
    }
    EXPECT_GT(shown, 20);
}

TEST(Pages, LinkToAndNameWhatIsThere)
{
    const auto exists = [](const std::filesystem::path& path)
    { return std::filesystem::exists(ProjectFolder() / path); };
    int found = 0;
    for (const std::filesystem::path& page : AllPages())
    {
        const std::string text = TextOf(page);
        for (const std::string& target : Matches(text, R"(\]\(([^)#:]+)(#[^)]*)?\))"))
        {
            EXPECT_TRUE(exists(page.parent_path() / target)) << page << " links to " << target;
        }
        for (const std::string& path : Matches(
                 text, "`(?!build/|share/)([A-Za-z_]+(?:/[A-Za-z_.-]+)*/[A-Za-z_-]*\\.?(?:h|cpp|md|sh|txt|cmake|))`"))
        {
            EXPECT_TRUE(exists(path) || exists("Varnotix/" + path) || exists("tools/varnotix/" + path))
                << page << " names " << path;
            ++found;
        }
    }
    EXPECT_GT(found, 20);
}

TEST(HostGuide, PrintsWhatItsPageShows)
{
    ASSERT_EQ(StatusOf("example_guide", ""), 0) << ReadText("err.txt");
    std::string shown;
    for (const std::string& block : Blocks(TextOf("docs/host-guide.md"), "text"))
    {
        shown += block;
    }
    EXPECT_EQ(ReadOutput(), shown);
}

TEST(ManPage, NamesEveryVerbAndOption)
{
    const std::string page = std::regex_replace(TextOf("docs/man/varnotix.1"), std::regex("\\\\f[A-Z]|\\\\(?=-)"), "");
    ASSERT_EQ(StatusOf("varnotix", "--help"), 0);
    const std::string help = ReadOutput();
    const std::set<std::string> verbs = Matches(help.substr(help.find("\nSubcommands:")), "\n  ([a-z]+) ");
    EXPECT_GT(verbs.size(), 5U);
    const std::string recipes = TextOf("docs/recipes.md");
    for (const std::string& verb : verbs)
    {
        EXPECT_TRUE(std::regex_search(recipes, std::regex("\n[$>] .*varnotix " + verb + "\\b")))
            << "a recipe of " << verb;
        EXPECT_TRUE(std::regex_search(page, std::regex("\n\\.SS \"?" + verb + "\\b"))) << verb;
        EXPECT_TRUE(std::regex_search(page.substr(page.find("\n.SH EXAMPLES")), std::regex("varnotix " + verb + "\\b")))
            << "an example of " << verb;
        StatusOf("varnotix", verb + " --help");
        for (const std::string& option : Matches(ReadOutput(), "[ ,](--?[a-zA-Z][-a-z]*)"))
        {
            EXPECT_TRUE(std::regex_search(page, std::regex("[^-a-z]" + option + "\\b"))) << verb << ' ' << option;
        }
    }
}

TEST(ManPage, HasTheExitStatusesOfHelpAndReadme)
{
    ASSERT_EQ(StatusOf("varnotix", "--help"), 0);
    const auto numbersBetween = [](const std::string& text, const std::string& from, const std::string& to)
    {
        const std::size_t start = text.find(from);
        return Matches(text.substr(start, text.find(to, start + from.size()) - start), "\\b([0-9]+)\\b");
    };
    const std::set<std::string> statuses = numbersBetween(ReadOutput(), "Exit status:", ".\n");
    EXPECT_GT(statuses.size(), 5U);
    EXPECT_EQ(numbersBetween(TextOf("docs/man/varnotix.1"), ".SH EXIT STATUS", "\n.SH"), statuses);
    EXPECT_EQ(numbersBetween(TextOf("README.md"), "| Exit status", "\n\n"), statuses);
}

TEST(Conformance, ListsSopClassesAsTheHostToolTakesThem)
{
    const std::string page = TextOf("docs/conformance.md");
    const std::regex row(R"(\n\| [^|]+ \| ([0-9.]+) \| `(\w+)` \|)");
    int rows = 0;
    for (std::sregex_iterator match(page.begin(), page.end(), row), end; match != end; ++match, ++rows)
    {
        CDcmIOD object;
        object.ElementStore().AddKnown("0008", "0016")->AddText(CString((*match)[1].str()));
        CByteArray bytes;
        object.ExportFileFormat(bytes);
        std::ofstream("sop.dcm", std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetSize());
        StatusOf("varnotix", "dump sop.dcm");
        EXPECT_NE(ReadOutput().find("#IOD_KIND=" + (*match)[2].str() + "\n"), std::string::npos) << (*match)[0];
    }
    EXPECT_GT(rows, 10);
}
