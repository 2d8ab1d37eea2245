/// Characters and texts of ASCII. The locale never matters; bytes above 7FH are left as they are.
#pragma once

#include <algorithm>
#include <string_view>

namespace Varnotix
{

/// The blank and the characters 09H to 0DH.
inline constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";

/// The lower-case form of an ASCII letter; any other character as it is.
constexpr char Lower(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

/// The upper-case form of an ASCII letter; any other character as it is.
constexpr char Upper(char character)
{
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

/// The value of a hexadecimal digit in either case; -1 for another character.
constexpr int HexDigit(char character)
{
    if (character >= '0' && character <= '9')
    {
        return character - '0';
    }
    const char lower = Lower(character);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// The text without white space at its ends.
constexpr std::string_view TrimBlanks(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(kWhiteSpace), text.size()));
    // npos + 1 is 0: nothing is left of white space only.
    return text.substr(0, text.find_last_not_of(kWhiteSpace) + 1);
}

/// True for texts that differ at most in the case of letters.
constexpr bool EqualNoCase(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return Lower(a) == Lower(b); });
}

} // namespace Varnotix
