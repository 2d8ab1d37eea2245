#include "Varnotix/registry/VrTable.h"

#include "Varnotix/platform/Ascii.h"

#include <array>

namespace Varnotix
{

namespace
{

constexpr std::array<SVrRow, kNamedVrCount> kRows{{
    {"AE", "AE Application Entity", 16},
    {"AS", "AS Age String", 4},
    {"AT", "AT Attribute Tag", 4},
    {"CS", "CS Code String", 16},
    {"DA", "DA Date", 8},
    {"DS", "DS Decimal String", 16},
    {"DT", "DT Date Time", 26},
    {"FL", "FL Floating Point Single", 4},
    {"FD", "FD Floating Point Double", 8},
    {"IS", "IS Integer String", 12},
    {"LO", "LO Long String", 64},
    {"LT", "LT Long Text", 10240},
    {"OB", "OB Other Byte String", 0},
    {"OF", "OF Other Float String", 0},
    {"OW", "OW Other Word String", 0},
    {"PN", "PN Person Name", 64},
    {"SH", "SH Short String", 16},
    {"SL", "SL Signed Long", 4},
    {"SQ", "SQ Sequence of Items", 0},
    {"SS", "SS Signed Short", 2},
    {"ST", "ST Short Text", 1024},
    {"TM", "TM Time", 16},
    {"UI", "UI Unique Identifier", 64},
    {"UL", "UL Unsigned Long", 4},
    {"UN", "UN Unknown", 0},
    {"US", "US Unsigned Short", 2},
    {"UT", "UT Unlimited Text", 0xFFFFFFFEU},
}};

constexpr SVrRow kNoRow{"", "", 0};

static_assert(
    []
    {
        for (std::size_t vr = 0; vr < kRows.size(); ++vr)
        {
            if (kRows[vr].text[0] != kVrLetters[2 * vr] || kRows[vr].text[1] != kVrLetters[2 * vr + 1])
            {
                return false;
            }
        }
        return true;
    }(),
    "both tables have the VRs in the order of their codes");

} // namespace

const SVrRow& VrRow(int vr)
{
    return vr >= 0 && vr < kNamedVrCount ? kRows[static_cast<std::size_t>(vr)] : kNoRow;
}

const char* VrText(int vr)
{
    return vr == VR_NONE ? "NONE" : VrRow(vr).text;
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
        if (EqualNoCase(text, spelling.text))
        {
            return spelling.vr;
        }
    }
    return VR_UNKNOWN;
}

} // namespace Varnotix
