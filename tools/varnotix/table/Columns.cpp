#include "table/Columns.h"

#include <algorithm>

namespace
{

constexpr DWORD kPixelGroup = 0x7FE00000;

bool IsGroup(std::string_view text)
{
    return text.size() == 4 && text.find_first_not_of("0123456789ABCDEFabcdef") == std::string_view::npos;
}

/// True when the comma at a place is that of a tag: four digits before it, in a step of their own, and four after it.
bool IsInTag(std::string_view text, std::size_t comma, std::size_t begin)
{
    std::string_view before = text.substr(begin, comma - begin);
    const std::size_t dot = before.rfind('.');
    before.remove_prefix(dot == std::string_view::npos ? 0 : dot + 1);
    before.remove_prefix(std::min(before.find_first_not_of(' '), before.size()));
    return IsGroup(before) && IsGroup(text.substr(comma + 1).substr(0, 4));
}

std::size_t EndOfColumn(std::string_view text, std::size_t begin)
{
    bool isQuoted = false;
    int brackets = 0;
    for (std::size_t i = begin; i < text.size(); ++i)
    {
        const char c = text[i];
        isQuoted = isQuoted != (c == '"');
        brackets += isQuoted ? 0 : c == '(' ? 1 : c == ')' ? -1 : 0;
        if (c == ',' && !isQuoted && brackets <= 0 && !IsInTag(text, i, begin))
        {
            return i;
        }
    }
    return text.size();
}

} // namespace

bool ParseColumns(std::string_view text, std::vector<SColumn>& columns, std::string& wrong)
{
    for (std::size_t begin = 0; begin <= text.size();)
    {
        const std::size_t end = EndOfColumn(text, begin);
        const std::string_view part = text.substr(begin, end - begin);
        const std::optional<Varnotix::CElementPath> path = Varnotix::CElementPath::Parse(part);
        if (part == kFileTitle)
        {
            columns.push_back({kFileTitle, {}});
        }
        else if (path.has_value())
        {
            columns.push_back({std::string(path->Text().View()), *path});
        }
        else
        {
            wrong = part;
            return false;
        }
        begin = end + 1;
    }
    return true;
}

DWORD TagAfter(const std::vector<const Varnotix::CElementPath*>& paths, DWORD last)
{
    for (const Varnotix::CElementPath* path : paths)
    {
        const Varnotix::SPathStep& first = path->Steps().front();
        last = std::max(last, first.creator.IsEmpty() ? first.tag : first.tag | 0xFFFFU);
    }
    return last + 1 < kPixelGroup ? last + 1 : 0;
}
