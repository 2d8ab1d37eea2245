/// The numbers of value fields.
#pragma once

#include "Varnotix/Varnotix.h"

#include <bit>
#include <cstdint>
#include <string_view>
#include <type_traits>

/// A value of VR AT.
struct STagNumber
{
    DWORD tag;
};

/// Calls the action with each number of a little-endian value; a partial one at the end is left out.
template <class NUMBER, class ACTION>
void ForNumbers(std::string_view bytes, const ACTION& action)
{
    using CBits = std::conditional_t<sizeof(NUMBER) == 2, std::uint16_t,
                                     std::conditional_t<sizeof(NUMBER) == 4, std::uint32_t, std::uint64_t>>;
    for (; bytes.size() >= sizeof(NUMBER); bytes.remove_prefix(sizeof(NUMBER)))
    {
        CBits bits = 0;
        for (std::size_t i = sizeof(NUMBER); i-- > 0;)
        {
            bits = static_cast<CBits>(static_cast<CBits>(bits << 8U) | static_cast<unsigned char>(bytes[i]));
        }
        action(std::bit_cast<NUMBER>(bits));
    }
}

/// As above, for the type of number that a VR has: STagNumber, float, double, or an integer of 16 to 64 bits.
/// @param vr two letters.
/// @return false, and no call, for a VR that does not hold numbers.
template <class ACTION>
bool ForNumbersOf(std::string_view vr, std::string_view bytes, const ACTION& action)
{
    if (vr == "AT")
    {
        // The group comes first, whatever the byte order.
        ForNumbers<std::uint32_t>(bytes,
                                  [&](std::uint32_t halves) { action(STagNumber{halves << 16U | halves >> 16U}); });
    }
    else if (vr == "US")
    {
        ForNumbers<std::uint16_t>(bytes, action);
    }
    else if (vr == "SS")
    {
        ForNumbers<std::int16_t>(bytes, action);
    }
    else if (vr == "UL")
    {
        ForNumbers<std::uint32_t>(bytes, action);
    }
    else if (vr == "SL")
    {
        ForNumbers<std::int32_t>(bytes, action);
    }
    else if (vr == "UV")
    {
        ForNumbers<std::uint64_t>(bytes, action);
    }
    else if (vr == "SV")
    {
        ForNumbers<std::int64_t>(bytes, action);
    }
    else if (vr == "FL")
    {
        ForNumbers<float>(bytes, action);
    }
    else if (vr == "FD")
    {
        ForNumbers<double>(bytes, action);
    }
    else
    {
        return false;
    }
    return true;
}
