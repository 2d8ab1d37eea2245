#include "Varnotix/asl/ScanNumber.h"

#include "Varnotix/platform/Ascii.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>

namespace Varnotix
{

namespace
{

/// Where counting stops: further digits cannot bring the number back into 32 bits.
constexpr std::uint64_t kTooLarge = std::uint64_t{1} << 33U;

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

/// Takes a sign from the beginning.
/// @return true for a minus.
bool TakeSign(std::string_view& text)
{
    const bool minus = text.starts_with('-');
    if (minus || text.starts_with('+'))
    {
        text.remove_prefix(1);
    }
    return minus;
}

/// Takes digits from the beginning; the number saturates at kTooLarge.
std::uint64_t TakeDigits(std::string_view& text)
{
    std::uint64_t number = 0;
    while (!text.empty() && IsDigit(text.front()))
    {
        number = std::min(number * 10 + static_cast<std::uint64_t>(text.front() - '0'), kTooLarge);
        text.remove_prefix(1);
    }
    return number;
}

struct SInteger
{
    bool negative;
    std::uint64_t magnitude;
    bool found;
    bool whole;
};

SInteger TakeInteger(std::string_view text)
{
    text = TrimBlanks(text);
    SInteger number{};
    number.negative = TakeSign(text);
    number.found = !text.empty() && IsDigit(text.front());
    number.magnitude = TakeDigits(text);
    number.whole = number.found && text.empty();
    return number;
}

/// True for a decimal number that is too small for a float, false for one that is too large. The number has no sign and
/// is one of the two.
bool IsTiny(std::string_view number)
{
    const std::size_t exponentMark = number.find_first_of("eE");
    std::string_view mantissa = number.substr(0, exponentMark);
    std::int64_t exponent = 0;
    if (exponentMark != std::string_view::npos)
    {
        std::string_view text = number.substr(exponentMark + 1);
        const bool minus = TakeSign(text);
        const std::int64_t size = static_cast<std::int64_t>(TakeDigits(text));
        exponent = minus ? -size : size;
    }
    const std::int64_t point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
    const std::int64_t first = static_cast<std::int64_t>(mantissa.find_first_of("123456789"));
    // One more than the power of ten of the first digit that is not 0; being off by one does not matter at the ends of
    // the range.
    return point - first + exponent < 0;
}

} // namespace

SScanned<DWORD> ScanUnsigned(std::string_view text)
{
    constexpr std::uint64_t kMax = std::numeric_limits<std::uint32_t>::max();
    const SInteger number = TakeInteger(text);
    SScanned<DWORD> scanned;
    scanned.found = number.found;
    scanned.whole = number.whole;
    scanned.inRange = number.magnitude <= kMax;
    const std::uint32_t magnitude = static_cast<std::uint32_t>(std::min(number.magnitude, kMax));
    scanned.value = number.negative && scanned.inRange ? 0U - magnitude : magnitude;
    return scanned;
}

SScanned<int> ScanInteger(std::string_view text)
{
    using Limits = std::numeric_limits<int>;
    const SInteger number = TakeInteger(text);
    const std::int64_t magnitude = static_cast<std::int64_t>(number.magnitude);
    const std::int64_t value = number.negative ? -magnitude : magnitude;
    SScanned<int> scanned;
    scanned.found = number.found;
    scanned.whole = number.whole;
    scanned.inRange = value >= Limits::min() && value <= Limits::max();
    scanned.value = static_cast<int>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
    return scanned;
}

SScanned<float> ScanFloat(std::string_view text)
{
    text = TrimBlanks(text);
    const bool minus = TakeSign(text);
    SScanned<float> scanned;
    if (text.starts_with('-'))
    {
        return scanned; // from_chars would take the second sign.
    }
    float value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const std::string_view number = text.substr(0, static_cast<std::size_t>(end - text.data()));
    if (error == std::errc::invalid_argument)
    {
        return scanned;
    }
    scanned.found = true;
    scanned.whole = number.size() == text.size();
    scanned.inRange = error != std::errc::result_out_of_range;
    if (!scanned.inRange)
    {
        value = IsTiny(number) ? 0.0F : std::numeric_limits<float>::infinity();
    }
    scanned.value = minus ? -value : value;
    return scanned;
}

} // namespace Varnotix
