#include "Varnotix/registry/TagText.h"

#include <cstdlib>
#include <optional>

namespace Varnotix
{

namespace
{

/// The leading hexadecimal number, as "%x" reads it; nothing where there is none.
std::optional<unsigned long long> LeadingHexNumber(const CString& text)
{
    // Every module declares hundreds of tags, nearly always as plain digits.
    if (const std::optional<int> whole = Tag::ParseNumber(text.View()))
    {
        return static_cast<unsigned long long>(*whole);
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

} // namespace Varnotix
