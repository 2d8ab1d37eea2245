// The pages point at what is there.

#include "Page.h"

#include <gtest/gtest.h>

#include <regex>

namespace
{

bool Exists(const std::filesystem::path& path)
{
    return std::filesystem::exists(ProjectFolder() / path);
}

/// Folders that a path in running text may begin in.
bool IsInTree(const std::string& path)
{
    return Exists(path) || Exists("Varnotix/" + path) || Exists("tools/varnotix/" + path);
}

/// Each first group of the pattern in the page.
Lines Matches(const std::filesystem::path& page, const std::regex& pattern)
{
    const std::string text = ReadText(ProjectFolder() / page);
    return {std::sregex_token_iterator(text.begin(), text.end(), pattern, 1), {}};
}

} // namespace

TEST(Pages, LinkToAndNameWhatIsThere)
{
    const std::regex link(R"(\]\(([^)#:]+)(#[^)]*)?\))");
    const std::regex file("`([A-Za-z_]+(?:/[A-Za-z_.-]+)*/[A-Za-z_-]*\\.?(?:h|cpp|md|sh|txt|cmake|))`");
    int links = 0;
    int files = 0;
    for (const std::filesystem::path& page : AllPages())
    {
        for (const std::string& target : Matches(page, link))
        {
            EXPECT_TRUE(Exists(page.parent_path() / target)) << page << " links to " << target;
            ++links;
        }
        for (const std::string& path : Matches(page, file))
        {
            if (!path.starts_with("build/") && !path.starts_with("share/"))
            {
                EXPECT_TRUE(IsInTree(path)) << page << " names " << path;
                ++files;
            }
        }
    }
    EXPECT_GT(links, 10);
    EXPECT_GT(files, 20);
}
