#include "Varnotix/asl/AslLine.h"

#include <algorithm>
#include <charconv>

namespace Varnotix
{

namespace
{

constexpr char kSeparator = ',';

/// Takes the text before the next separator, and the separator.
std::string_view TakeField(std::string_view& text)
{
    const std::size_t end = std::min(text.find(kSeparator), text.size());
    const std::string_view field = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return field;
}

} // namespace

SAslCommand SplitAslCommand(std::string_view line)
{
    line.remove_prefix(1);
    const std::size_t sign = std::min(line.find('='), line.size());
    const std::string_view argument = TrimBlanks(line.substr(std::min(sign + 1, line.size())));
    return {TrimBlanks(line.substr(0, sign)), TrimBlanks(argument.substr(0, argument.find_first_of("\r\n")))};
}

std::optional<int> AslItemNumber(const SAslCommand& command)
{
    if (!EqualNoCase(command.keyword, "ITEM"))
    {
        return std::nullopt;
    }
    int number = 0;
    const char* const end = command.argument.data() + command.argument.size();
    const auto [rest, error] = std::from_chars(command.argument.data(), end, number);
    return error == std::errc() && rest == end ? std::max(number, 0) : 0;
}

SAslElement SplitAslElement(std::string_view line)
{
    SAslElement parts{};
    for (std::string_view* field : {&parts.group, &parts.element, &parts.vr, &parts.multiplicity, &parts.name})
    {
        *field = TrimBlanks(TakeField(line));
    }
    parts.tail = line;
    const std::size_t open = line.find('[');
    if (open == std::string_view::npos)
    {
        parts.isListClosed = true;
        parts.isTextOutside = !TrimBlanks(line).empty();
        return parts;
    }
    const std::string_view list = line.substr(open + 1);
    const std::size_t close = list.find(']');
    parts.values = list.substr(0, close);
    parts.isListClosed = close != std::string_view::npos;
    parts.isTextOutside = !TrimBlanks(line.substr(0, open)).empty() ||
                          (parts.isListClosed && !TrimBlanks(list.substr(close + 1)).empty());
    return parts;
}

bool NextAslValue(std::string_view& values, std::string_view& text)
{
    if (values.empty())
    {
        return false;
    }
    text = TakeField(values);
    return true;
}

} // namespace Varnotix
