#include "text/CodeTable.h"

#include <algorithm>
#include <array>

namespace
{

constexpr char32_t kFirstKatakana = 0xFF61;
constexpr int kFirstKatakanaCode = 0xA1;
constexpr int kLastKatakanaCode = 0xDF;
constexpr char32_t kYenSign = 0xA5;
constexpr char32_t kOverline = 0x203E;

/// The characters of the codes 80H to FFH of a set with one byte per character.
using CUpperHalf = std::array<char32_t, 128>;

const CUpperHalf& UpperHalf(ECodeSet set)
{
    thread_local std::array<CUpperHalf, kCodeSetCount> tables{};
    thread_local std::array<bool, kCodeSetCount> filled{};
    const std::size_t index = static_cast<std::size_t>(set);
    if (!filled[index])
    {
        for (int code = 0x80; code <= 0xFF; ++code)
        {
            const char byte = static_cast<char>(code);
            tables[index][static_cast<std::size_t>(code - 0x80)] = SystemCharacterOf(set, {&byte, 1});
        }
        filled[index] = true;
    }
    return tables[index];
}

char32_t LowerHalf(ECodeSet set, unsigned char code)
{
    if (code >= 0x80)
    {
        return 0;
    }
    if (set == ECodeSet::Roman && (code == '\\' || code == '~'))
    {
        return code == '\\' ? kYenSign : kOverline;
    }
    return code;
}

bool IsOwnEncoding(ECodeSet set)
{
    return set == ECodeSet::Gb18030 || set == ECodeSet::Gbk;
}

} // namespace

int WidthOf(ECodeSet set)
{
    return set == ECodeSet::Kanji || set == ECodeSet::Kanji2 || set == ECodeSet::Korean || set == ECodeSet::Chinese ? 2
                                                                                                                    : 1;
}

char32_t CharacterOf(ECodeSet set, std::string_view code)
{
    const unsigned char first = static_cast<unsigned char>(code.front());
    if (set == ECodeSet::Ascii || set == ECodeSet::Roman)
    {
        return LowerHalf(set, first);
    }
    if (set == ECodeSet::Katakana)
    {
        return first >= kFirstKatakanaCode && first <= kLastKatakanaCode ? kFirstKatakana + first - kFirstKatakanaCode
                                                                         : 0;
    }
    if (WidthOf(set) == 2 || IsOwnEncoding(set))
    {
        return SystemCharacterOf(set, code);
    }
    return first >= 0x80 ? UpperHalf(set)[first - 0x80U] : 0;
}

std::string CodeOf(ECodeSet set, char32_t character)
{
    if (set == ECodeSet::Ascii || set == ECodeSet::Roman)
    {
        if (set == ECodeSet::Roman && (character == kYenSign || character == kOverline))
        {
            return character == kYenSign ? "\\" : "~";
        }
        return character < 0x80 && LowerHalf(set, static_cast<unsigned char>(character)) == character
                   ? std::string(1, static_cast<char>(character))
                   : std::string();
    }
    if (set == ECodeSet::Katakana)
    {
        const bool has =
            character >= kFirstKatakana && character <= kFirstKatakana + kLastKatakanaCode - kFirstKatakanaCode;
        return has ? std::string(1, static_cast<char>(character - kFirstKatakana + kFirstKatakanaCode)) : std::string();
    }
    if (WidthOf(set) == 2 || IsOwnEncoding(set))
    {
        return SystemCodeOf(set, character);
    }
    const CUpperHalf& table = UpperHalf(set);
    const auto found = std::find(table.begin(), table.end(), character);
    return character != 0 && found != table.end() ? std::string(1, static_cast<char>(found - table.begin() + 0x80))
                                                  : std::string();
}

void AppendUtf8(std::string& text, char32_t character)
{
    if (character < 0x80)
    {
        text += static_cast<char>(character);
        return;
    }
    const int following = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    constexpr std::array<int, 4> kLeads = {0, 0xC0, 0xE0, 0xF0};
    text += static_cast<char>(static_cast<unsigned>(kLeads[static_cast<std::size_t>(following)]) |
                              (character >> (6 * following)));
    for (int i = following - 1; i >= 0; --i)
    {
        text += static_cast<char>(0x80U | ((character >> (6 * i)) & 0x3FU));
    }
}

bool TakeUtf8(std::string_view& text, char32_t& character)
{
    const auto byte = [&text](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    const unsigned char lead = byte(0);
    const std::size_t size = lead < 0x80   ? 1
                             : lead < 0xC2 ? 0
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                             : lead < 0xF5 ? 4
                                           : 0;
    bool valid = size > 0 && size <= text.size();
    char32_t found = size == 1 ? lead : size == 2 ? lead & 0x1FU : size == 3 ? lead & 0x0FU : lead & 0x07U;
    for (std::size_t i = 1; valid && i < size; ++i)
    {
        valid = (byte(i) & 0xC0) == 0x80;
        found = found << 6 | (byte(i) & 0x3FU);
    }
    const bool isLongForm = (size == 3 && found < 0x800) || (size == 4 && found < 0x10000);
    const bool isSurrogate = found >= 0xD800 && found < 0xE000;
    valid = valid && !isLongForm && !isSurrogate && found <= 0x10FFFF;
    text.remove_prefix(valid ? size : 1);
    character = valid ? found : kReplacement;
    return valid;
}
