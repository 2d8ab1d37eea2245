/// Coded character sets (PS3.3 section C.12.1.1.2), and the characters of their codes.
#pragma once

#include <string>
#include <string_view>

/// A coded character set, or an encoding that needs no others beside it.
enum class ECodeSet : int
{
    None,
    Ascii,    // ISO-IR 6
    Roman,    // ISO-IR 14: ASCII with a yen sign and an overline
    Latin1,   // ISO-IR 100, and so on
    Latin2,   // 101
    Latin3,   // 109
    Latin4,   // 110
    Cyrillic, // 144
    Arabic,   // 127
    Greek,    // 126
    Hebrew,   // 138
    Latin5,   // 148
    Latin9,   // 203
    Katakana, // 13
    Thai,     // 166
    Kanji,    // 87: JIS X 0208
    Kanji2,   // 159: JIS X 0212
    Korean,   // 149: KS X 1001
    Chinese,  // 58: GB 2312
    Gb18030,
    Gbk,
    Utf8
};

inline constexpr int kCodeSetCount = static_cast<int>(ECodeSet::Utf8) + 1;

/// Number of bytes of a character of a set that takes part in code extensions: 1 or 2.
int WidthOf(ECodeSet set);

/// The character of a code.
/// @param code one character; sets for code extensions have the high bit set in each byte, whichever half they are
///        used in, but Ascii and Roman.
/// @return 0 for a code that has no character. Not for Utf8.
char32_t CharacterOf(ECodeSet set, std::string_view code);

/// The code of a character, in the form that CharacterOf takes; empty when the set lacks it. Not for Utf8.
std::string CodeOf(ECodeSet set, char32_t character);

/// As CharacterOf and CodeOf, from the tables of the operating system, for the sets but Ascii, Roman, Katakana and
/// Utf8.
char32_t SystemCharacterOf(ECodeSet set, std::string_view code);
std::string SystemCodeOf(ECodeSet set, char32_t character);

/// U+FFFD, which replaces bytes without a character.
inline constexpr char32_t kReplacement = 0xFFFD;

/// Appends a character in UTF-8.
void AppendUtf8(std::string& text, char32_t character);

/// Takes the first character off a text in UTF-8 that is not empty.
/// @return false, and one byte taken off, when the text does not begin with a valid character.
bool TakeUtf8(std::string_view& text, char32_t& character);
