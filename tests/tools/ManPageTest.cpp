// The manual page, held against the help that the program prints.

#include "ToolRunner.h"

#include <regex>
#include <set>

namespace
{

/// The manual page as plain text: without escapes of hyphens and fonts.
std::string ManPage()
{
    const std::string source = ReadText(ProjectFolder() / "docs" / "man" / "varnotix.1");
    return std::regex_replace(std::regex_replace(source, std::regex("\\\\f[A-Z]"), ""), std::regex("\\\\-"), "-");
}

/// The lines from a heading to the next one of its kind or above; a heading may go on behind the name.
std::string Section(const std::string& page, const std::string& heading)
{
    const std::regex next("\n\\.S[HS] ");
    const std::regex begin("\n" + heading + "[ \n]");
    std::smatch match;
    if (!std::regex_search(page, match, begin))
    {
        return std::string();
    }
    const std::string rest = page.substr(static_cast<std::size_t>(match.position()) + 1);
    return std::regex_search(rest, match, next) ? rest.substr(0, static_cast<std::size_t>(match.position())) : rest;
}

std::set<std::string> Matches(const std::string& text, const std::string& pattern)
{
    const std::regex expression(pattern);
    std::set<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match)
    {
        found.insert((*match)[1].str());
    }
    return found;
}

} // namespace

using ManPageTest = ToolTest;

TEST_F(ManPageTest, NamesEveryVerbAndOptionOfTheHelpAndNoOther)
{
    const std::string page = ManPage();
    const std::string common = Section(page, "\\.SH OPTIONS");
    ASSERT_FALSE(common.empty());

    std::string help = Run("--help").out;
    std::erase(help, '\r');
    const std::size_t list = help.find("Subcommands:\n");
    ASSERT_NE(list, std::string::npos);
    const std::set<std::string> verbs = Matches(help.substr(list, help.find("\n\n", list) - list), "\n  ([a-z]+) ");
    ASSERT_FALSE(verbs.empty());
    EXPECT_EQ(verbs, Matches(page, "\n\\.SS \"?([a-z]+)"));

    const std::string option = "(--[a-z][-a-z]*|-[a-zA-Z]\\b)";
    for (const std::string& verb : verbs)
    {
        const std::string section = Section(page, "\\.SS \"?" + verb);
        const std::string verbHelp = Run(verb + " --help").out;
        std::set<std::string> offered;
        for (const std::string& line : Matches(verbHelp, "\n  (-[^ \r\n]+)"))
        {
            offered.merge(Matches(line, option));
        }
        std::set<std::string> told = Matches(section, "[^-a-z]" + option);
        std::set<std::string> shared = Matches(common, "[^-a-z]" + option);
        std::erase_if(shared, [&](const std::string& name) { return !offered.contains(name); });
        told.merge(shared);
        EXPECT_EQ(told, offered) << verb;
    }
}
