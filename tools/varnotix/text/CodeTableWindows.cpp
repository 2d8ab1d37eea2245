#if defined(_WIN32)

#include "text/CodeTable.h"

#include <array>

#define WIN32_LEAN_AND_MEAN
#if !defined(NOMINMAX)
#define NOMINMAX
#endif
#include <windows.h>

namespace
{

UINT PageOf(ECodeSet set)
{
    // The page of both kanji sets holds EUC, those of the other two are supersets of theirs.
    constexpr std::array<UINT, kCodeSetCount> kPages = {0,     0,     0,     28591, 28592, 28593, 28594, 28595,
                                                        28596, 28597, 28598, 28599, 28605, 0,     874,   20932,
                                                        20932, 949,   936,   54936, 936,   0};
    return kPages[static_cast<std::size_t>(set)];
}

bool IsPairOfSet(ECodeSet set, std::string_view code)
{
    const auto isUpper = [](char c) { return static_cast<unsigned char>(c) >= 0xA1; };
    return code.size() == 2 && isUpper(code[0]) && (set == ECodeSet::Kanji2 ? code[1] > 0 : isUpper(code[1]));
}

} // namespace

char32_t SystemCharacterOf(ECodeSet set, std::string_view code)
{
    std::string form(code);
    if (set == ECodeSet::Kanji2 && form.size() == 2)
    {
        // The page distinguishes the two kanji sets by the high bit of the second byte.
        form[1] = static_cast<char>(form[1] & 0x7F);
    }
    std::array<wchar_t, 4> units{};
    const int count =
        ::MultiByteToWideChar(PageOf(set), MB_ERR_INVALID_CHARS, form.data(), static_cast<int>(form.size()),
                              units.data(), static_cast<int>(units.size()));
    if (count == 2 && units[0] >= 0xD800 && units[0] < 0xDC00)
    {
        return 0x10000 + ((static_cast<char32_t>(units[0]) - 0xD800) << 10) +
               (static_cast<char32_t>(units[1]) - 0xDC00);
    }
    return count == 1 ? static_cast<char32_t>(units[0]) : 0;
}

std::string SystemCodeOf(ECodeSet set, char32_t character)
{
    std::array<wchar_t, 2> units{};
    int count = 1;
    units[0] = static_cast<wchar_t>(character);
    if (character >= 0x10000)
    {
        units[0] = static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10));
        units[1] = static_cast<wchar_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
        count = 2;
    }
    std::array<char, 8> bytes{};
    const int size = ::WideCharToMultiByte(PageOf(set), 0, units.data(), count, bytes.data(),
                                           static_cast<int>(bytes.size()), nullptr, nullptr);
    std::string code(bytes.data(), static_cast<std::size_t>(size > 0 ? size : 0));
    if (WidthOf(set) == 2 && !IsPairOfSet(set, code))
    {
        return {};
    }
    if (set == ECodeSet::Kanji2)
    {
        code[1] = static_cast<char>(static_cast<unsigned char>(code[1]) | 0x80U);
    }
    // What a page lacks becomes a similar character or a question mark.
    return SystemCharacterOf(set, code) == character ? code : std::string();
}

#endif
