#include "Varnotix/element/TagText.h"

#include <cstdlib>

bool ScanHexNumber(const CString& text, int& number)
{
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
