#include "Varnotix/registry/TagHash.h"

#include <chrono>

std::uint64_t TagSpread()
{
    static const std::uint64_t spread = []
    {
        // Whoever makes a file knows neither the clock's last digits nor where the system puts the stack.
        const auto ticks = std::chrono::high_resolution_clock::now().time_since_epoch().count();
        std::uint64_t seed = static_cast<std::uint64_t>(ticks);
        seed ^= static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(&ticks)) << 20U;
        seed = (seed ^ (seed >> 30U)) * 0xBF58476D1CE4E5B9U;
        seed = (seed ^ (seed >> 27U)) * 0x94D049BB133111EBU;
        return (seed ^ (seed >> 31U)) | 1U;
    }();
    return spread;
}
