#include "object/NewUid.h"

#include <array>
#include <cstdint>
#include <random>

CString NewUid()
{
    std::random_device device;
    std::array<std::uint32_t, 4> uuid{device(), device(), device(), device()};
    uuid[1] = (uuid[1] & 0xFFFF0FFFU) | 0x4000U;     // Version: random.
    uuid[2] = (uuid[2] & 0x3FFFFFFFU) | 0x80000000U; // Variant.

    // The most digits that 128 bits can have.
    constexpr int kDigits = 39;
    std::string digits(kDigits, '0');
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit)
    {
        std::uint64_t rest = 0;
        for (std::uint32_t& word : uuid)
        {
            rest = rest << 32U | word;
            word = static_cast<std::uint32_t>(rest / 10);
            rest %= 10;
        }
        *digit = static_cast<char>('0' + rest);
    }
    return CString("2.25." + digits.substr(digits.find_first_not_of('0')));
}
