// What the shell completes; it asks the program for its verbs and options.
#if !defined(_WIN32)

#include "ToolRunner.h"

#include <regex>
#include <set>

using Completion = ToolTest;

namespace
{

/// What the last of the words, in the shell's syntax, is completed to.
std::set<std::string> Completed(const std::string& words)
{
    const std::string script = "source '" + (ProjectFolder() / "tools/varnotix/varnotix.bash").string() +
                               "'\nCOMP_WORDS=(\"$VARNOTIX_BIN/varnotix\" " + words +
                               ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n_varnotix\n"
                               "for word in \"${COMPREPLY[@]}\"; do echo \"$word\"; done\n";
    std::ofstream("try.sh") << script;
    EXPECT_EQ(std::system("bash try.sh >out.txt 2>err.txt"), 0);
    EXPECT_EQ(ReadText("err.txt"), "");
    std::ifstream lines("out.txt");
    std::set<std::string> found;
    for (std::string line; std::getline(lines, line);)
    {
        found.insert(line);
    }
    return found;
}

std::set<std::string> Matches(const std::string& text, const std::string& pattern)
{
    std::set<std::string> found;
    const std::regex expression(pattern);
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match)
    {
        found.insert((*match)[1]);
    }
    return found;
}

} // namespace

TEST_F(Completion, KnowsEachVerbAndItsOptions)
{
    const std::string help = Run("--help").out;
    const std::size_t start = help.find("\nSubcommands:");
    const std::set<std::string> verbs = Matches(help.substr(start, help.find("\n\n", start) - start), "\n  ([a-z]+) ");
    std::set<std::string> expected = verbs;
    expected.insert({"-h", "--help", "--version", "--classic"});
    EXPECT_EQ(Completed("''"), expected);
    for (const std::string& verb : verbs)
    {
        EXPECT_TRUE(Completed(verb.substr(0, 2)).contains(verb));
        EXPECT_EQ(Completed(verb + " x --"), Matches(Run(verb + " --help").out, "\n  (?:-[a-z],)?(--[-a-z]+)")) << verb;
    }
}

TEST_F(Completion, KnowsTheValuesOfOptions)
{
    const std::set<std::string> syntaxes = {"implicit", "explicit", "big", "deflated"};
    EXPECT_EQ(Completed("convert -s ''"), syntaxes);
    EXPECT_EQ(Completed("convert --syntax = ''"), syntaxes);
    EXPECT_EQ(Completed("--classic build --syntax b"), std::set<std::string>{"big"});
    EXPECT_EQ(Completed("new S"), (std::set<std::string>{"SC", "SC-MF"}));
    EXPECT_TRUE(Completed("dump ''").empty()); // The shell then completes names of files.
    EXPECT_TRUE(Completed("dump -- -").empty());
}

#endif
