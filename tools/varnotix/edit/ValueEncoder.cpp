#include "edit/ValueEncoder.h"

#include "object/ValueForms.h"

#include <charconv>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>

namespace
{

template <class NUMBER>
void AppendNumber(std::string& bytes, NUMBER number)
{
    using Bits = std::conditional_t<sizeof(NUMBER) == 2, std::uint16_t,
                                    std::conditional_t<sizeof(NUMBER) == 4, std::uint32_t, std::uint64_t>>;
    Bits bits;
    std::memcpy(&bits, &number, sizeof bits);
    for (std::size_t i = 0; i < sizeof bits; ++i)
    {
        bytes += static_cast<char>(bits >> (8 * i) & 0xFFU);
    }
}

/// Appends one number of the text; false when it is not one of the type.
template <class NUMBER>
bool AppendDecimal(std::string& bytes, std::string_view text)
{
    if (text.starts_with('+'))
    {
        text.remove_prefix(1);
    }
    NUMBER number{};
    const std::from_chars_result result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size())
    {
        return false;
    }
    AppendNumber(bytes, number);
    return true;
}

bool AppendTag(std::string& bytes, std::string_view text)
{
    const std::optional<Varnotix::CElementPath> path = Varnotix::CElementPath::Parse(text);
    if (!path || path->Steps().size() != 1 || path->Steps().front().item != Varnotix::SPathStep::kNoItem ||
        !path->Steps().front().creator.IsEmpty())
    {
        return false;
    }
    const DWORD tag = path->Steps().front().tag;
    AppendNumber(bytes, static_cast<std::uint16_t>(Varnotix::Tag::Group(tag)));
    AppendNumber(bytes, static_cast<std::uint16_t>(Varnotix::Tag::Element(tag)));
    return true;
}

struct SNumberVr
{
    const char* letters;
    bool (*append)(std::string& bytes, std::string_view text);
    const char* what;
};

constexpr SNumberVr kNumberVrs[] = {
    {"AT", &AppendTag, "is not a tag (gggg,eeee) or a keyword"},
    {"FD", &AppendDecimal<double>, "is not a number"},
    {"FL", &AppendDecimal<float>, "is not a number of single precision"},
    {"OD", &AppendDecimal<double>, "is not a number"},
    {"OF", &AppendDecimal<float>, "is not a number of single precision"},
    {"OL", &AppendDecimal<std::uint32_t>, "is not a whole number from 0 to 4294967295"},
    {"OV", &AppendDecimal<std::uint64_t>, "is not a whole number from 0 to 18446744073709551615"},
    {"OW", &AppendDecimal<std::uint16_t>, "is not a whole number from 0 to 65535"},
    {"SL", &AppendDecimal<std::int32_t>, "is not a whole number from -2147483648 to 2147483647"},
    {"SS", &AppendDecimal<std::int16_t>, "is not a whole number from -32768 to 32767"},
    {"SV", &AppendDecimal<std::int64_t>, "is not a whole number of 64 bits"},
    {"UL", &AppendDecimal<std::uint32_t>, "is not a whole number from 0 to 4294967295"},
    {"US", &AppendDecimal<std::uint16_t>, "is not a whole number from 0 to 65535"},
    {"UV", &AppendDecimal<std::uint64_t>, "is not a whole number from 0 to 18446744073709551615"},
};

SEncodedText EncodeNumbers(std::string_view text, const SNumberVr& vr)
{
    SEncodedText encoded;
    for (std::size_t end = 0; end != std::string_view::npos;)
    {
        end = text.find('\\');
        const std::string_view value = Varnotix::TrimBlanks(text.substr(0, end));
        if (!vr.append(encoded.bytes, value))
        {
            return {std::string(), Quoted(value) + ' ' + vr.what};
        }
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return encoded;
}

SEncodedText EncodeHex(std::string_view text)
{
    SEncodedText encoded;
    for (std::string_view rest = Varnotix::TrimBlanks(text); !rest.empty(); rest = Varnotix::TrimBlanks(rest))
    {
        const int high = Varnotix::HexDigit(rest[0]);
        const int low = rest.size() > 1 ? Varnotix::HexDigit(rest[1]) : -1;
        if (high < 0 || low < 0)
        {
            return {std::string(), Quoted(text) + " is not a list of bytes, two hexadecimal digits each"};
        }
        encoded.bytes += static_cast<char>(high * 0x10 + low);
        rest.remove_prefix(2);
    }
    return encoded;
}

SEncodedText EncodeUnpadded(std::string_view text, std::string_view vr, const CCharacterSet& characters)
{
    for (const SNumberVr& row : kNumberVrs)
    {
        if (row.letters == vr)
        {
            return EncodeNumbers(text, row);
        }
    }
    return vr == "OB" || vr == "UN" ? EncodeHex(text) : characters.FromUtf8(text, vr);
}

} // namespace

SEncodedText EncodeValue(std::string_view text, std::string_view vr, const CCharacterSet& characters)
{
    if (text.empty())
    {
        return {};
    }
    SEncodedText encoded = EncodeUnpadded(text, vr, characters);
    if (encoded.bytes.size() % 2 == 1)
    {
        encoded.bytes += vr == "UI" || vr == "OB" || vr == "UN" ? '\0' : ' ';
    }
    return encoded;
}
