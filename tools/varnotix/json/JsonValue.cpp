#include "json/JsonValue.h"

#include "object/ElementMaker.h"
#include "text/CharacterSet.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace
{

template <class BITS>
void AppendBits(std::string& bytes, BITS bits)
{
    for (std::size_t i = 0; i < sizeof(BITS); ++i)
    {
        bytes += static_cast<char>(bits >> (8 * i) & 0xFFU);
    }
}

[[noreturn]] void RefuseValue(const SJsonValue& value, const std::string& vr)
{
    const bool hasText = value.kind == SJsonValue::EKind::Text || value.kind == SJsonValue::EKind::Number;
    throw CJsonFault((hasText ? "'" + value.text.substr(0, 60) + "'" : std::string("a value")) +
                     " cannot be a value of VR " + vr);
}

template <class NUMBER>
bool Scan(const std::string& text, NUMBER& number)
{
    const std::from_chars_result result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

/// Writers give integers as 5.0 too.
template <class NUMBER>
bool ScanInteger(const std::string& text, NUMBER& number)
{
    double rounded = 0;
    if (Scan(text, number))
    {
        return true;
    }
    constexpr double kExact = 9007199254740992.0;
    if (!Scan(text, rounded) || rounded != std::trunc(rounded) || std::abs(rounded) > kExact ||
        rounded < static_cast<double>(std::numeric_limits<NUMBER>::min()) ||
        rounded > static_cast<double>(std::numeric_limits<NUMBER>::max()))
    {
        return false;
    }
    number = static_cast<NUMBER>(rounded);
    return true;
}

template <class NUMBER>
void AppendNumber(std::string& bytes, const SJsonValue& value, const std::string& vr)
{
    NUMBER number{};
    if (value.kind != SJsonValue::EKind::Number && value.kind != SJsonValue::EKind::Text)
    {
        RefuseValue(value, vr);
    }
    if constexpr (std::is_floating_point_v<NUMBER>)
    {
        // Also "NaN" and "Infinity".
        if (!Scan(value.text, number))
        {
            RefuseValue(value, vr);
        }
        using CBits = std::conditional_t<sizeof(NUMBER) == 4, std::uint32_t, std::uint64_t>;
        AppendBits(bytes, std::bit_cast<CBits>(number));
    }
    else
    {
        if (!ScanInteger(value.text, number))
        {
            RefuseValue(value, vr);
        }
        AppendBits(bytes, static_cast<std::make_unsigned_t<NUMBER>>(number));
    }
}

void AppendTag(std::string& bytes, const SJsonValue& value, const std::string& vr)
{
    std::uint32_t tag = 0;
    const char* const end = value.text.data() + value.text.size();
    const std::from_chars_result result = std::from_chars(value.text.data(), end, tag, 16);
    if (value.kind != SJsonValue::EKind::Text || value.text.size() != 8 || result.ptr != end)
    {
        RefuseValue(value, vr);
    }
    AppendBits(bytes, static_cast<std::uint16_t>(tag >> 16U));
    AppendBits(bytes, static_cast<std::uint16_t>(tag & 0xFFFFU));
}

void AppendText(std::string& bytes, const SJsonValue& value, const std::string& vr)
{
    using EKind = SJsonValue::EKind;
    const bool isNumber = vr == "DS" || vr == "IS";
    if (value.kind == EKind::Item || (value.kind == EKind::Number && !isNumber) ||
        (value.kind == EKind::Name && vr != "PN"))
    {
        RefuseValue(value, vr);
    }
    if (CCharacterSet::HasManyValues(vr) && value.text.find('\\') != std::string::npos)
    {
        throw CJsonFault("a backslash would divide '" + value.text.substr(0, 60) + "' into two values");
    }
    bytes += value.text;
}

using CAppend = void (*)(std::string&, const SJsonValue&, const std::string&);

struct SVrWriter
{
    std::string_view vr;
    CAppend append;
};

constexpr std::array<SVrWriter, 9> kNumbers = {{{"AT", &AppendTag},
                                                {"FD", &AppendNumber<double>},
                                                {"FL", &AppendNumber<float>},
                                                {"SL", &AppendNumber<std::int32_t>},
                                                {"SS", &AppendNumber<std::int16_t>},
                                                {"SV", &AppendNumber<std::int64_t>},
                                                {"UL", &AppendNumber<std::uint32_t>},
                                                {"US", &AppendNumber<std::uint16_t>},
                                                {"UV", &AppendNumber<std::uint64_t>}}};

CAppend NumberWriterOf(const std::string& vr)
{
    for (const SVrWriter& row : kNumbers)
    {
        if (row.vr == vr)
        {
            return row.append;
        }
    }
    return nullptr;
}

} // namespace

std::string BytesOfValues(const std::string& vr, const std::vector<SJsonValue>& values)
{
    std::string bytes;
    if (const CAppend append = NumberWriterOf(vr))
    {
        for (const SJsonValue& value : values)
        {
            append(bytes, value, vr);
        }
        return bytes;
    }
    const bool isText = Varnotix::VrKind(CarrierCode(vr)) == EVrKind::Text;
    if (!isText && !values.empty())
    {
        throw CJsonFault("values of VR " + vr + " are bytes, in InlineBinary");
    }
    if (values.size() > 1 && !CCharacterSet::HasManyValues(vr))
    {
        throw CJsonFault("an attribute of VR " + vr + " has one value");
    }
    for (std::size_t i = 0; i < values.size(); ++i)
    {
        bytes += i > 0 ? "\\" : "";
        AppendText(bytes, values[i], vr);
    }
    return bytes;
}
