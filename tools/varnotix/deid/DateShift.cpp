#include "deid/DateShift.h"

#include "Varnotix/Varnotix.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

namespace
{

bool IsDigits(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

int NumberOf(std::string_view digits)
{
    int number = 0;
    for (const char digit : digits)
    {
        number = number * 10 + (digit - '0');
    }
    return number;
}

/// Moves the date in the first four, six or eight digits; a month or a year is taken for its first day.
std::optional<std::string> ShiftDigits(std::string_view digits, int days)
{
    using namespace std::chrono;
    const int month = digits.size() > 4 ? NumberOf(digits.substr(4, 2)) : 1;
    const int day = digits.size() > 6 ? NumberOf(digits.substr(6, 2)) : 1;
    const year_month_day old{year{NumberOf(digits.substr(0, 4))}, std::chrono::month{static_cast<unsigned>(month)},
                             std::chrono::day{static_cast<unsigned>(day)}};
    if (!old.ok())
    {
        return std::nullopt;
    }
    const year_month_day moved{sys_days{old} + std::chrono::days{days}};
    const int movedYear = static_cast<int>(moved.year());
    if (movedYear < 1 || movedYear > 9999)
    {
        return std::nullopt;
    }
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%04d%02u%02u", movedYear, static_cast<unsigned>(moved.month()),
                  static_cast<unsigned>(moved.day()));
    return std::string(text.data()).substr(0, digits.size());
}

/// True for what may follow the date: digits of a time of day with a fraction, and an offset from UTC. The second date
/// of a range is neither.
bool EndsDateTime(std::string_view rest)
{
    constexpr std::size_t kTime = 6;
    constexpr std::size_t kFraction = 6;
    constexpr std::size_t kOffset = 5;
    constexpr int kFarthestEast = 1400;
    constexpr int kFarthestWest = 1200;
    const std::size_t sign = std::min(rest.find_first_of("+-"), rest.size());
    const std::string_view offset = rest.substr(sign);
    const std::string_view time = rest.substr(0, sign);
    const std::size_t point = std::min(time.find('.'), time.size());
    const std::string_view fraction = time.substr(std::min(point + 1, time.size()));
    const bool isTime = point <= kTime && (point == 0 || IsDigits(time.substr(0, point))) &&
                        (point == time.size() || (IsDigits(fraction) && fraction.size() <= kFraction));
    return isTime &&
           (offset.empty() || (offset.size() == kOffset && IsDigits(offset.substr(1)) &&
                               NumberOf(offset.substr(1)) <= (offset.front() == '+' ? kFarthestEast : kFarthestWest)));
}

std::optional<std::string> ShiftOne(std::string_view value, int vr, int days)
{
    constexpr std::size_t kDate = 8;
    if (vr == VR_TM || value.empty())
    {
        const bool isTime = value.find_first_not_of("0123456789:.") == std::string_view::npos;
        return isTime ? std::optional(std::string(value)) : std::nullopt;
    }
    if (vr == VR_DA && value.size() == 10 && value[4] == '.' && value[7] == '.')
    {
        // The form of the standard's first edition.
        const std::string digits = std::string(value.substr(0, 4)) += std::string(value.substr(5, 2)) +=
            value.substr(8);
        const auto moved = IsDigits(digits) ? ShiftDigits(digits, days) : std::nullopt;
        return moved ? std::optional(moved->substr(0, 4) + "." + moved->substr(4, 2) + "." + moved->substr(6))
                     : std::nullopt;
    }
    // A date and time ends with the time of day and the offset from UTC, which stay.
    const std::size_t digits = std::min(value.find_first_not_of("0123456789"), value.size());
    const std::size_t date = std::min(digits, kDate);
    const std::string_view rest = value.substr(date);
    const bool isWhole = vr == VR_DA ? date == kDate && rest.empty() : date >= 4 && date % 2 == 0 && EndsDateTime(rest);
    const auto moved = isWhole ? ShiftDigits(value.substr(0, date), days) : std::nullopt;
    return moved ? std::optional(*moved + std::string(rest)) : std::nullopt;
}

} // namespace

std::optional<std::string> ShiftDates(std::string_view values, int vr, int days)
{
    std::string moved;
    for (;;)
    {
        const std::size_t end = std::min(values.find('\\'), values.size());
        std::string_view value = values.substr(0, end);
        value = value.substr(0, value.find_last_not_of(std::string_view(" \0", 2)) + 1);
        value.remove_prefix(std::min(value.find_first_not_of(' '), value.size()));
        const std::optional<std::string> one = ShiftOne(value, vr, days);
        if (!one)
        {
            return std::nullopt;
        }
        moved += *one;
        if (end == values.size())
        {
            return moved;
        }
        moved += '\\';
        values.remove_prefix(end + 1);
    }
}
