// The recipes do what their page shows: each command is run, and its output compared.

#include "Programs.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

namespace
{

using Lines = std::vector<std::string>;

/// A command of the page, and the lines that it is to print.
struct SStep
{
    std::string heading;
    int line = 0;
    std::string command;
    Lines shown;
};

Lines LinesOf(const std::string& text)
{
    std::istringstream stream(text);
    Lines lines;
    for (std::string line; std::getline(stream, line);)
    {
        std::erase(line, '\r'); // The page cannot show the line ends of CSV.
        lines.push_back(line);
    }
    return lines;
}

/// The commands of the page's console blocks: a line that begins with "$ ", and lines after it that begin with "> ".
std::vector<SStep> StepsOf(const std::string& page)
{
    std::vector<SStep> steps;
    std::string heading;
    int number = 0;
    bool isConsole = false;
    for (const std::string& line : LinesOf(page))
    {
        ++number;
        if (line.starts_with("```"))
        {
            isConsole = line == "```console";
        }
        else if (!isConsole)
        {
            heading = line.starts_with("#") ? line : heading;
        }
        else if (line.starts_with("$ "))
        {
            steps.push_back({heading, number, line.substr(2) + "\n", {}});
        }
        else if (line.starts_with("> ") && steps.back().shown.empty())
        {
            steps.back().command += line.substr(2) + "\n";
        }
        else
        {
            steps.back().shown.push_back(line);
        }
    }
    return steps;
}

/// Whether a line is the shown one, in which "..." is any text.
bool IsShown(std::string_view shown, std::string_view line)
{
    const std::size_t gap = shown.find("...");
    if (gap == std::string_view::npos)
    {
        return shown == line;
    }
    if (!line.starts_with(shown.substr(0, gap)))
    {
        return false;
    }
    for (line.remove_prefix(gap); !IsShown(shown.substr(gap + 3), line); line.remove_prefix(1))
    {
        if (line.empty())
        {
            return false;
        }
    }
    return true;
}

/// Whether lines are the shown ones, among which the line "..." is any number of lines.
bool AreShown(const Lines& shown, std::size_t next, const Lines& lines, std::size_t line)
{
    if (next == shown.size())
    {
        return line == lines.size();
    }
    if (shown[next] == "...")
    {
        return AreShown(shown, next + 1, lines, line) ||
               (line < lines.size() && AreShown(shown, next, lines, line + 1));
    }
    return line < lines.size() && IsShown(shown[next], lines[line]) && AreShown(shown, next + 1, lines, line + 1);
}

std::string Joined(const Lines& lines)
{
    std::string text;
    for (const std::string& line : lines)
    {
        text += line + "\n";
    }
    return text;
}

} // namespace

TEST(Recipes, PrintWhatTheirPageShows)
{
    if (kIsWindows)
    {
        GTEST_SKIP() << "the commands are those of a POSIX shell";
    }
    std::filesystem::remove_all("recipes");
    std::filesystem::create_directory("recipes");
    const std::string shell =
        "cd recipes && PATH=\"$VARNOTIX_BIN:$PATH\" LC_ALL=C sh ../recipe.sh >../recipe.txt 2>&1 </dev/null";
    std::string heading;
    int recipes = 0;
    for (const SStep& step : StepsOf(ReadText(ProjectFolder() / "docs/recipes.md")))
    {
        recipes += step.heading != heading ? 1 : 0;
        heading = step.heading;
        std::ofstream("recipe.sh") << step.command;
        std::system(shell.c_str()); // Where its status matters, the command prints it.
        const Lines printed = LinesOf(ReadText("recipe.txt"));
        if (!AreShown(step.shown, 0, printed, 0))
        {
            ADD_FAILURE_AT("docs/recipes.md", step.line) << heading << "\n$ " << step.command << "--- shown\n"
                                                         << Joined(step.shown) << "--- printed\n"
                                                         << Joined(printed);
        }
    }
    EXPECT_GE(recipes, 30);
}
