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

/// Calls back for each first group of the pattern in the page.
template <class CALL>
void ForEachMatch(const std::filesystem::path& page, const std::regex& pattern, const CALL& call)
{
    const std::string text = ReadText(ProjectFolder() / page);
    for (std::sregex_iterator match(text.begin(), text.end(), pattern), end; match != end; ++match)
    {
        call((*match)[1].str());
    }
}

} // namespace

TEST(Pages, LinkToWhatIsThere)
{
    const std::regex link(R"(\]\(([^)#:]+)(#[^)]*)?\))");
    int links = 0;
    for (const std::filesystem::path& page : AllPages())
    {
        ForEachMatch(page, link,
                     [&](const std::string& target)
                     {
                         EXPECT_TRUE(Exists(page.parent_path() / target)) << page << " links to " << target;
                         ++links;
                     });
    }
    EXPECT_GT(links, 10);
}

TEST(Pages, NameFilesThatAreThere)
{
    const std::regex file("`([A-Za-z_]+(?:/[A-Za-z_.-]+)*/[A-Za-z_-]*\\.?(?:h|cpp|md|sh|txt|cmake|))`");
    int files = 0;
    for (const std::filesystem::path& page : AllPages())
    {
        ForEachMatch(page, file,
                     [&](const std::string& path)
                     {
                         if (!path.starts_with("build/") && !path.starts_with("share/"))
                         {
                             EXPECT_TRUE(IsInTree(path)) << page << " names " << path;
                             ++files;
                         }
                     });
    }
    EXPECT_GT(files, 20);
}
