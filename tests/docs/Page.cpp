#include "Page.h"

#include <algorithm>
#include <sstream>

Lines LinesOf(const std::string& text)
{
    std::istringstream stream(text);
    Lines lines;
    for (std::string line; std::getline(stream, line);)
    {
        lines.push_back(line);
    }
    return lines;
}

Lines LinesOfFile(const std::filesystem::path& path)
{
    return LinesOf(ReadText(ProjectFolder() / path));
}

std::vector<Lines> Blocks(const Lines& page, const std::string& language)
{
    std::vector<Lines> blocks;
    bool isInside = false;
    std::size_t indent = 0; // Of the fence; a block inside a list has one.
    for (const std::string& line : page)
    {
        const std::size_t text = std::min(line.find_first_not_of(' '), line.size());
        if (!isInside && line.substr(text) == "```" + language)
        {
            isInside = true;
            indent = text;
            blocks.emplace_back();
        }
        else if (line.compare(text, 3, "```") == 0)
        {
            isInside = false;
        }
        else if (isInside)
        {
            blocks.back().push_back(line.substr(std::min(indent, line.size())));
        }
    }
    return blocks;
}

Lines Table(const Lines& page, const std::string& heading)
{
    auto line = std::find(page.begin(), page.end(), heading);
    line = std::find_if(line, page.end(), [](const std::string& text) { return text.starts_with('|'); });
    return {line, std::find_if(line, page.end(), [](const std::string& text) { return !text.starts_with('|'); })};
}

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
    std::sort(pages.begin(), pages.end());
    return pages;
}
