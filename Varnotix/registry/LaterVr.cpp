#include "Varnotix/registry/LaterVr.h"

#include <array>

namespace Varnotix
{

namespace
{

struct SLaterVr
{
    const char* text;
    int carrier;
    std::size_t swapWidth;
};

constexpr std::array<SLaterVr, 8> kLaterVrs{{
    {"", VR_UNKNOWN, 1},
    {"OD", VR_OB, 8},
    {"OL", VR_OB, 4},
    {"OV", VR_OB, 8},
    {"SV", VR_OB, 8},
    {"UC", VR_UT, 1},
    {"UR", VR_UT, 1},
    {"UV", VR_OB, 8},
}};

const SLaterVr& RowOf(ELaterVr vr)
{
    return kLaterVrs[static_cast<std::size_t>(vr)];
}

} // namespace

const char* LaterVrText(ELaterVr vr)
{
    return RowOf(vr).text;
}

ELaterVr LaterVrOfBytes(BYTE first, BYTE second)
{
    for (std::size_t row = 1; row < kLaterVrs.size(); ++row)
    {
        if (kLaterVrs[row].text[0] == static_cast<char>(first) && kLaterVrs[row].text[1] == static_cast<char>(second))
        {
            return static_cast<ELaterVr>(row);
        }
    }
    return ELaterVr::None;
}

int CarrierVr(ELaterVr vr)
{
    return RowOf(vr).carrier;
}

std::size_t SwapWidth(ELaterVr vr)
{
    return RowOf(vr).swapWidth;
}

} // namespace Varnotix
