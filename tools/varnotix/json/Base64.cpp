#include "json/Base64.h"

#include <array>
#include <cstdint>

namespace
{

constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t kNoDigit = 0xFF;
constexpr int kBitsOfDigit = 6;

constexpr std::array<std::uint8_t, 256> ValuesOfDigits()
{
    std::array<std::uint8_t, 256> values{};
    values.fill(kNoDigit);
    for (std::size_t i = 0; i < kDigits.size(); ++i)
    {
        values[static_cast<unsigned char>(kDigits[i])] = static_cast<std::uint8_t>(i);
    }
    return values;
}

void AppendDigits(unsigned bits, int digits, std::string& text)
{
    for (int i = 3; i > 3 - digits; --i)
    {
        text += kDigits[bits >> (kBitsOfDigit * i) & 0x3FU];
    }
}

bool IsBlank(char c)
{
    return c == ' ' || c == '\r' || c == '\n' || c == '\t';
}

} // namespace

void CBase64Encoder::Append(std::string_view bytes, std::string& text)
{
    for (const char c : bytes)
    {
        m_waiting = m_waiting << 8U | static_cast<unsigned char>(c);
        if (++m_count == 3)
        {
            AppendDigits(m_waiting, 4, text);
            m_waiting = 0;
            m_count = 0;
        }
    }
}

void CBase64Encoder::Finish(std::string& text)
{
    if (m_count > 0)
    {
        AppendDigits(m_waiting << (8 * (3 - m_count)), m_count + 1, text);
        text.append(static_cast<std::size_t>(3 - m_count), '=');
    }
    m_waiting = 0;
    m_count = 0;
}

std::optional<CSharedBytes> DecodeBase64(std::string_view text)
{
    static constexpr std::array<std::uint8_t, 256> kValues = ValuesOfDigits();
    BYTE* bytes = nullptr;
    const CSharedBytes whole = CSharedBytes::Allocate(text.size() / 4 * 3 + 3, bytes);
    std::size_t size = 0;
    std::size_t digits = 0;
    std::size_t padding = 0;
    std::uint32_t bits = 0;
    for (const char c : text)
    {
        if (IsBlank(c))
        {
            continue;
        }
        if (c == '=')
        {
            ++padding;
            continue;
        }
        const std::uint8_t value = kValues[static_cast<unsigned char>(c)];
        if (value == kNoDigit || padding > 0)
        {
            return std::nullopt;
        }
        bits = bits << kBitsOfDigit | value;
        // The bits that a digit completes a byte with.
        if (++digits % 4 != 1)
        {
            bytes[size++] = static_cast<BYTE>(bits >> (2 * (3 - (digits + 3) % 4)));
        }
    }
    if ((digits + padding) % 4 != 0 || padding > 2)
    {
        return std::nullopt;
    }
    return whole.Part(0, size);
}
