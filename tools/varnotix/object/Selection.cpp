#include "object/Selection.h"

std::optional<SSelection> SSelection::Parse(std::string_view text)
{
    constexpr std::size_t kGroupDigits = 4;
    SSelection selection;
    if (text == "private")
    {
        return selection;
    }
    if (text.size() == kGroupDigits)
    {
        selection.group = Varnotix::Tag::ParseNumber(text);
    }
    if (!selection.group)
    {
        selection.path = Varnotix::CElementPath::Parse(text);
    }
    return selection.group || selection.path ? std::optional(selection) : std::nullopt;
}
