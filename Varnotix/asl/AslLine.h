/// The parts of a line of the Attribute Script Language, as views into its text.
#pragma once

#include "Varnotix/platform/Ascii.h"
#include "Varnotix/platform/Export.h"

#include <optional>
#include <string_view>

namespace Varnotix
{

/// A line that begins with "#".
struct SAslCommand
{
    std::string_view keyword;  ///< Before the first "=", trimmed.
    std::string_view argument; ///< After it, up to the first line break, trimmed.
};

/// Splits a command line at its first "=".
/// @param line a trimmed line that begins with "#".
VARNOTIX_EXPORT SAslCommand SplitAslCommand(std::string_view line);

/// The number in an item mark, "#ITEM=2"; 0 when it is not a number from 1 on. None for other commands.
VARNOTIX_EXPORT std::optional<int> AslItemNumber(const SAslCommand& command);

/// A line that describes an element: group,element,VR,multiplicity,name,[values]. The first five fields are trimmed;
/// those that the line lacks are empty.
struct SAslElement
{
    std::string_view group;
    std::string_view element;
    std::string_view vr;
    std::string_view multiplicity;
    std::string_view name;
    std::string_view tail;   ///< Everything after the comma that ends the name; not trimmed.
    std::string_view values; ///< Of that, the part between "[" and the next "]", or the end of the line; not trimmed.
    bool isListClosed;       ///< A "]" follows the values, or there is no list.
    bool isTextOutside;      ///< The tail holds more than the list and white space.
};

/// Splits a line at its first five commas and at the brackets of the value list.
VARNOTIX_EXPORT SAslElement SplitAslElement(std::string_view line);

/// Takes the next text from a value list. A comma ends each text; after the last one it may be missing.
/// @return false at the end of the list; the text then stays as it is.
VARNOTIX_EXPORT bool NextAslValue(std::string_view& values, std::string_view& text);

} // namespace Varnotix
