// The code that the pages show stands in sources that are built, and prints what the pages say.

#include "Page.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

/// True when the block stands in the source, line by line, at whatever depth.
bool Shows(const Lines& source, const Lines& block)
{
    const auto isBlockAt = [&](std::size_t first)
    {
        const std::string indent = source[first].substr(0, source[first].find_first_not_of(' '));
        for (std::size_t i = 0; i < block.size(); ++i)
        {
            if (source[first + i] != (block[i].empty() ? "" : indent + block[i]))
            {
                return false;
            }
        }
        return true;
    };
    for (std::size_t first = 0; first + block.size() <= source.size(); ++first)
    {
        if (!source[first].empty() && isBlockAt(first))
        {
            return true;
        }
    }
    return false;
}

std::vector<Lines> Sources()
{
    std::vector<Lines> sources;
    for (const char* folder : {"examples", "Varnotix/catalogue"})
    {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(ProjectFolder() / folder))
        {
            if (entry.path().extension() == ".cpp" || entry.path().extension() == ".h")
            {
                sources.push_back(LinesOf(ReadText(entry.path())));
            }
        }
    }
    return sources;
}

} // namespace

TEST(Pages, ShowCodeThatIsBuilt)
{
    const std::vector<Lines> sources = Sources();
    int shown = 0;
    for (const std::filesystem::path& page : AllPages())
    {
        for (const Lines& block : Blocks(LinesOfFile(page), "cpp"))
        {
            ASSERT_FALSE(block.empty()) << page;
            EXPECT_TRUE(
                std::any_of(sources.begin(), sources.end(), [&](const Lines& source) { return Shows(source, block); }))
                << page << ": no source holds the block that begins with\n"
                << block.front();
            ++shown;
        }
    }
    EXPECT_GT(shown, 20);
}

TEST(HostGuide, PrintsWhatItsPageShows)
{
    ASSERT_EQ(StatusOf("example_guide", ""), 0) << ReadText("err.txt");
    Lines shown;
    for (const Lines& block : Blocks(LinesOfFile("docs/host-guide.md"), "text"))
    {
        shown.insert(shown.end(), block.begin(), block.end());
    }
    EXPECT_EQ(LinesOf(ReadOutput()), shown);
}
