#include "object/Attributes.h"

#include <charconv>
#include <cmath>
#include <string_view>

namespace
{

/// Reads without regard to the locale of the process.
template <class NUMBER>
std::optional<NUMBER> Scan(CString text)
{
    text.Trim();
    std::string_view rest = text.View();
    if (rest.starts_with('+'))
    {
        rest.remove_prefix(1);
    }
    NUMBER number{};
    const std::from_chars_result result = std::from_chars(rest.data(), rest.data() + rest.size(), number);
    if (result.ec != std::errc() || result.ptr != rest.data() + rest.size())
    {
        return std::nullopt;
    }
    return number;
}

} // namespace

CString TextOf(const CDcmElementSet& set, DWORD tag)
{
    const CDcmElement* found = set.Find(tag);
    CString text = found != nullptr ? CString(found->JoinedText().CText()) : CString();
    text.Trim();
    return text;
}

std::optional<int> WordOf(const CDcmElementSet& set, DWORD tag)
{
    const CDcmElement* found = set.Find(tag);
    const CWordArray* words = found != nullptr ? found->Words() : nullptr;
    if (words == nullptr || words->IsEmpty())
    {
        return std::nullopt;
    }
    return (*words)[0];
}

std::optional<int> WholeNumber(const CString& text)
{
    return Scan<int>(text);
}

std::optional<double> DecimalNumber(const CString& text)
{
    const std::optional<double> number = Scan<double>(text);
    return number.has_value() && std::isfinite(*number) ? number : std::nullopt;
}

void SetText(CDcmElementSet& set, DWORD tag, std::string_view value, char padding)
{
    CByteArray bytes;
    bytes.Assign(reinterpret_cast<const BYTE*>(value.data()), static_cast<int>(value.size()));
    if (bytes.GetSize() % 2 == 1)
    {
        bytes.Add(static_cast<BYTE>(padding));
    }
    if (CDcmElement* present = set.Find(tag))
    {
        present->SetRawBytes(bytes);
    }
    else
    {
        set.Add(new CDcmElement(Varnotix::Tag::Group(tag), Varnotix::Tag::Element(tag), bytes));
    }
}
