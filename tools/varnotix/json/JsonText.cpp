#include "json/JsonText.h"

#include <array>
#include <charconv>
#include <cmath>

namespace
{

// Integers up to here are exact in doubles.
constexpr std::int64_t kExact = std::int64_t{1} << 53U;

/// @param digits significant ones; 0 for as many as it takes.
template <class NUMBER>
void AppendFloating(std::string& json, NUMBER number, int digits)
{
    if (!std::isfinite(number))
    {
        json += std::isnan(number) ? "\"NaN\"" : number > 0 ? "\"Infinity\"" : "\"-Infinity\"";
        return;
    }
    std::array<char, 64> text{};
    char* const end = text.data() + text.size();
    const std::to_chars_result result =
        digits == 0 ? std::to_chars(text.data(), end, number)
                    : std::to_chars(text.data(), end, number, std::chars_format::general, digits);
    json.append(text.data(), result.ptr);
    if (number == 0 && std::signbit(number))
    {
        json += ".0"; // Readers take -0 for an integer, which has no such sign.
    }
}

std::size_t CountDigits(std::string_view text)
{
    const std::size_t end = text.find_first_not_of("0123456789");
    return end == std::string_view::npos ? text.size() : end;
}

std::string_view WithoutLeadingZeros(std::string_view digits)
{
    const std::size_t first = digits.find_first_not_of('0');
    return first == std::string_view::npos ? std::string_view("0") : digits.substr(first);
}

std::string TakeSign(std::string_view& text)
{
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+'))
    {
        text.remove_prefix(1);
    }
    return isNegative ? "-" : "";
}

} // namespace

void AppendJsonString(std::string& json, std::string_view text)
{
    constexpr std::string_view kHex = "0123456789abcdef";
    json += '"';
    for (const char c : text)
    {
        const unsigned char code = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\')
        {
            json += '\\';
            json += c;
        }
        else if (c == '\n' || c == '\r' || c == '\t')
        {
            json += c == '\n' ? "\\n" : c == '\r' ? "\\r" : "\\t";
        }
        else if (code < 0x20 || code == 0x7F)
        {
            json += "\\u00";
            json += kHex[code >> 4U];
            json += kHex[code & 0xFU];
        }
        else
        {
            json += c;
        }
    }
    json += '"';
}

void AppendJsonNumber(std::string& json, double number)
{
    AppendFloating(json, number, 0);
}

void AppendJsonNumber(std::string& json, float number)
{
    // Readers take numbers for doubles; the shortest digits of a float are not those of the double nearest to it.
    AppendFloating(json, number, 9);
}

void AppendJsonInteger(std::string& json, std::int64_t number)
{
    const bool isExact = number <= kExact && number >= -kExact;
    const std::string digits = std::to_string(number);
    json += isExact ? digits : '"' + digits + '"';
}

void AppendJsonInteger(std::string& json, std::uint64_t number)
{
    const bool isExact = number <= static_cast<std::uint64_t>(kExact);
    const std::string digits = std::to_string(number);
    json += isExact ? digits : '"' + digits + '"';
}

std::optional<std::string> JsonNumberOfDecimal(std::string_view text)
{
    std::string number = TakeSign(text);
    const std::string_view whole = text.substr(0, CountDigits(text));
    text.remove_prefix(whole.size());
    std::string_view fraction;
    if (text.starts_with('.'))
    {
        text.remove_prefix(1);
        fraction = text.substr(0, CountDigits(text));
        text.remove_prefix(fraction.size());
    }
    if (whole.empty() && fraction.empty())
    {
        return std::nullopt;
    }
    number += WithoutLeadingZeros(whole);
    if (!fraction.empty())
    {
        number += '.';
        number += fraction;
    }
    if (text.empty())
    {
        return number;
    }
    if (text.front() != 'e' && text.front() != 'E')
    {
        return std::nullopt;
    }
    std::string_view exponent = text.substr(1);
    TakeSign(exponent);
    if (exponent.empty() || CountDigits(exponent) != exponent.size())
    {
        return std::nullopt;
    }
    number += text;
    return number;
}

std::optional<std::string> JsonNumberOfInteger(std::string_view text)
{
    std::string number = TakeSign(text);
    if (text.empty() || CountDigits(text) != text.size())
    {
        return std::nullopt;
    }
    number += WithoutLeadingZeros(text);
    std::int32_t value = 0;
    const std::from_chars_result result = std::from_chars(number.data(), number.data() + number.size(), value);
    return result.ec == std::errc() ? std::optional(number) : std::nullopt;
}
