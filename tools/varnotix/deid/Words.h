/// Words of texts in UTF-8, as names are looked for in them.
#pragma once

#include <string>
#include <string_view>

/// True for the letters of ASCII.
bool IsLetter(char character);

/// The text with small letters in place of Latin, Greek and Cyrillic capitals. Its size stays.
std::string FoldCase(std::string_view text);

/// The number of characters of a text.
std::size_t CountCharacters(std::string_view text);

/// True for a place between two characters of one word. Scripts whose characters have three bytes or more have no
/// blanks between words: every place is an end of a word there.
bool IsInsideWord(std::string_view text, std::size_t place);

/// Puts asterisks in place of runs of six digits or more, and of mail addresses.
void StarNumbersAndMail(std::string& text);

/// What ends the words of names.
inline constexpr std::string_view kWordEnds(" \t\r\n^=\\,;()[]<>\"'\0", 18);
