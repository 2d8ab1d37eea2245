#include "Varnotix/element/TagText.h"

#include <cstdlib>
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

} // namespace

bool ScanHexNumber(const CString& text, int& number)
{
    if (const int whole = FourDigits(text.View()); whole >= 0)
    {
        number = whole;
        return true;
    }
    const char* digits = text;
    char* end = nullptr;
    const unsigned long value = std::strtoul(digits, &end, 16);
    if (end == digits)
    {
        return false;
    }
    number = static_cast<int>(value & 0xFFFFU);
    return true;
}
