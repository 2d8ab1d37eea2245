#include "Varnotix/element/TagText.h"

#include <cstdlib>
#include <optional>
#include <string_view>

namespace
{

constexpr std::string_view::size_type kTagDigits = 4;

/// The value of a hexadecimal digit; -1 for another character.
constexpr int DigitValue(char character)
{
    if (character >= '0' && character <= '9')
    {
        return character - '0';
    }
    if (character >= 'A' && character <= 'F')
    {
        return character - 'A' + 10;
    }
    return character >= 'a' && character <= 'f' ? character - 'a' + 10 : -1;
}

/// The number of exactly four digits, as every module declares its tags by hundreds of them; -1 for any other text.
int FourDigits(std::string_view text)
{
    if (text.size() != kTagDigits)
    {
        return -1;
    }
    int number = 0;
    for (const char character : text)
    {
        const int digit = DigitValue(character);
        if (digit < 0)
        {
            return -1;
        }
        number = number * 16 + digit;
    }
    return number;
}

/// The leading hexadecimal number, as "%x" reads it; nothing where there is none.
std::optional<unsigned long long> LeadingHexNumber(const CString& text)
{
    if (const int whole = FourDigits(text.View()); whole >= 0)
    {
        return static_cast<unsigned long long>(whole);
    }
    const char* digits = text;
    char* end = nullptr;
    // A long has 32 bits on one system and 64 on another.
    const unsigned long long number = std::strtoull(digits, &end, 16);
    return end == digits ? std::nullopt : std::optional(number);
}

} // namespace

bool ScanHexNumber(const CString& text, int& number)
{
    const auto scanned = LeadingHexNumber(text);
    if (scanned)
    {
        number = static_cast<int>(*scanned & 0xFFFFU);
    }
    return scanned.has_value();
}

bool IsTagNumber(const CString& text)
{
    const auto scanned = LeadingHexNumber(text);
    return scanned && *scanned <= 0xFFFFU;
}
