#include "Varnotix/registry/VrTable.h"

#include <array>

namespace
{

constexpr bool kShort = false;
constexpr bool kLong = true;

constexpr std::array<SVrRow, kNamedVrCount> kRows{{
    {"AE", "AE Application Entity", 16, EVrKind::Text, kShort},
    {"AS", "AS Age String", 4, EVrKind::Text, kShort},
    {"AT", "AT Attribute Tag", 4, EVrKind::Words, kShort},
    {"CS", "CS Code String", 16, EVrKind::Text, kShort},
    {"DA", "DA Date", 8, EVrKind::Text, kShort},
    {"DS", "DS Decimal String", 16, EVrKind::Text, kShort},
    {"DT", "DT Date Time", 26, EVrKind::Text, kShort},
    {"FL", "FL Floating Point Single", 4, EVrKind::Floats, kShort},
    {"FD", "FD Floating Point Double", 8, EVrKind::Doubles, kShort},
    {"IS", "IS Integer String", 12, EVrKind::Text, kShort},
    {"LO", "LO Long String", 64, EVrKind::Text, kShort},
    {"LT", "LT Long Text", 10240, EVrKind::Text, kShort},
    {"OB", "OB Other Byte String", 0, EVrKind::Bytes, kLong},
    {"OF", "OF Other Float String", 0, EVrKind::Floats, kLong},
    {"OW", "OW Other Word String", 0, EVrKind::OtherWords, kLong},
    {"PN", "PN Person Name", 64, EVrKind::Text, kShort},
    {"SH", "SH Short String", 16, EVrKind::Text, kShort},
    {"SL", "SL Signed Long", 4, EVrKind::Integers, kShort},
    {"SQ", "SQ Sequence of Items", 0, EVrKind::Items, kLong},
    {"SS", "SS Signed Short", 2, EVrKind::Words, kShort},
    {"ST", "ST Short Text", 1024, EVrKind::Text, kShort},
    {"TM", "TM Time", 16, EVrKind::Text, kShort},
    {"UI", "UI Unique Identifier", 64, EVrKind::Text, kShort},
    {"UL", "UL Unsigned Long", 4, EVrKind::Integers, kShort},
    {"UN", "UN Unknown", 0, EVrKind::RawOnly, kLong},
    {"US", "US Unsigned Short", 2, EVrKind::Words, kShort},
    {"UT", "UT Unlimited Text", 0xFFFFFFFEU, EVrKind::Text, kLong},
}};

constexpr SVrRow kNoRow{"", "", 0, EVrKind::RawOnly, kShort};

constexpr int kLetters = 26;

// The decoder asks for a code once an element, so the two letters index a small table.
constexpr auto kCodeOfLetters = []
{
    std::array<BYTE, kLetters * kLetters> codes{};
    codes.fill(static_cast<BYTE>(VR_UNKNOWN));
    for (std::size_t vr = 0; vr < kRows.size(); ++vr)
    {
        const int row = kRows[vr].text[0] - 'A';
        const int column = kRows[vr].text[1] - 'A';
        codes[static_cast<std::size_t>(row * kLetters + column)] = static_cast<BYTE>(vr);
    }
    return codes;
}();

constexpr int LetterIndex(BYTE character)
{
    const BYTE upper = character & 0xDFU;
    return upper >= 'A' && upper <= 'Z' ? upper - 'A' : -1;
}

} // namespace

const SVrRow& VrRow(int vr)
{
    return vr >= 0 && vr < kNamedVrCount ? kRows[static_cast<std::size_t>(vr)] : kNoRow;
}

const char* VrText(int vr)
{
    return vr == VR_NONE ? "NONE" : VrRow(vr).text;
}

int VrCodeOfBytes(BYTE first, BYTE second)
{
    const int row = LetterIndex(first);
    const int column = LetterIndex(second);
    if (row < 0 || column < 0)
    {
        return VR_UNKNOWN;
    }
    return kCodeOfLetters[static_cast<std::size_t>(row * kLetters + column)];
}

int VrCode(std::string_view text)
{
    if (text.size() == 2)
    {
        return VrCodeOfBytes(static_cast<BYTE>(text[0]), static_cast<BYTE>(text[1]));
    }
    struct SSpelling
    {
        std::string_view text;
        int vr;
    };
    static constexpr SSpelling kSpellings[] = {
        {"usss", VR_US}, {"csob", VR_OB}, {"usssow", VR_OW}, {"obow", VR_OB}, {"none", VR_NONE}};
    for (const SSpelling& spelling : kSpellings)
    {
        if (CString(text).CompareNoCase(CString(spelling.text)) == 0)
        {
            return spelling.vr;
        }
    }
    return VR_UNKNOWN;
}
