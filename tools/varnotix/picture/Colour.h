/// Colour spaces.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

/// Full range colour difference values of eight bits as colours (PS3.3 C.7.6.3.1.2).
template <class NUMBER>
void FromYbr(int luminance, int blue, int red, NUMBER* rgb)
{
    constexpr int kZero = 128;
    const auto channel = [](double value) { return static_cast<NUMBER>(std::clamp(std::lround(value), 0L, 255L)); };
    rgb[0] = channel(luminance + 1.402 * (red - kZero));
    rgb[1] = channel(luminance - 0.344136 * (blue - kZero) - 0.714136 * (red - kZero));
    rgb[2] = channel(luminance + 1.772 * (blue - kZero));
}
