#include "edit/ValueDecoder.h"

#include "edit/ValueEncoder.h"

#include <charconv>
#include <cstdint>
#include <cstring>

namespace
{

template <class NUMBER>
NUMBER NumberAt(std::string_view bytes)
{
    std::uint64_t bits = 0;
    for (std::size_t i = sizeof(NUMBER); i > 0; --i)
    {
        bits = bits << 8U | static_cast<unsigned char>(bytes[i - 1]);
    }
    NUMBER number;
    if constexpr (sizeof(NUMBER) == 4)
    {
        const auto narrow = static_cast<std::uint32_t>(bits);
        std::memcpy(&number, &narrow, sizeof number);
    }
    else if constexpr (sizeof(NUMBER) == 2)
    {
        const auto narrow = static_cast<std::uint16_t>(bits);
        std::memcpy(&number, &narrow, sizeof number);
    }
    else
    {
        std::memcpy(&number, &bits, sizeof number);
    }
    return number;
}

/// The shortest text that gives the number again.
template <class NUMBER>
std::string Decimal(std::string_view bytes)
{
    char text[64];
    const std::to_chars_result result = std::to_chars(std::begin(text), std::end(text), NumberAt<NUMBER>(bytes));
    return {text, result.ptr};
}

std::string TagText(std::string_view bytes)
{
    CString text;
    text.Format("%04X%04X", static_cast<unsigned>(NumberAt<std::uint16_t>(bytes)),
                static_cast<unsigned>(NumberAt<std::uint16_t>(bytes.substr(2))));
    return std::string(text.View());
}

struct SNumberVr
{
    const char* letters;
    std::size_t width;
    std::string (*text)(std::string_view bytes);
};

constexpr SNumberVr kNumberVrs[] = {
    {"AT", 4, &TagText},
    {"FD", 8, &Decimal<double>},
    {"FL", 4, &Decimal<float>},
    {"OD", 8, &Decimal<double>},
    {"OF", 4, &Decimal<float>},
    {"OL", 4, &Decimal<std::uint32_t>},
    {"OV", 8, &Decimal<std::uint64_t>},
    {"OW", 2, &Decimal<std::uint16_t>},
    {"SL", 4, &Decimal<std::int32_t>},
    {"SS", 2, &Decimal<std::int16_t>},
    {"SV", 8, &Decimal<std::int64_t>},
    {"UL", 4, &Decimal<std::uint32_t>},
    {"US", 2, &Decimal<std::uint16_t>},
    {"UV", 8, &Decimal<std::uint64_t>},
};

std::string Numbers(std::string_view bytes, const SNumberVr& vr)
{
    std::string text;
    for (; bytes.size() >= vr.width; bytes.remove_prefix(vr.width))
    {
        text += (text.empty() ? "" : "\\") + vr.text(bytes.substr(0, vr.width));
    }
    return text;
}

std::string Hex(std::string_view bytes)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    for (const char byte : bytes)
    {
        const auto code = static_cast<unsigned char>(byte);
        text += text.empty() ? "" : " ";
        text += kDigits[code >> 4U];
        text += kDigits[code & 0xFU];
    }
    return text;
}

std::string Text(std::string_view bytes, std::string_view vr, const CCharacterSet& characters)
{
    for (const SNumberVr& row : kNumberVrs)
    {
        if (row.letters == vr)
        {
            return Numbers(bytes, row);
        }
    }
    if (vr == "OB" || vr == "UN")
    {
        return Hex(bytes);
    }
    const std::size_t end = bytes.find_last_not_of(vr == "UI" ? '\0' : ' ');
    return characters.ToUtf8(bytes.substr(0, end + 1), vr).Joined();
}

} // namespace

std::optional<std::string> DecodeValue(std::string_view bytes, std::string_view vr, const CCharacterSet& characters)
{
    std::string text = Text(bytes, vr, characters);
    const SEncodedText again = EncodeValue(text, vr, characters);
    const bool isSame =
        again.reason.IsEmpty() &&
        (again.bytes == bytes || (bytes.size() % 2 == 1 && again.bytes.substr(0, bytes.size()) == bytes));
    return isSame ? std::optional(std::move(text)) : std::nullopt;
}
