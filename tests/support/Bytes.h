// Byte arrays written out in tests, and shown.
#pragma once

#include "Varnotix/platform/Arrays.h"

#include <cctype>
#include <cstdio>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

/// The low eight bits of each number.
inline CByteArray Bytes(std::initializer_list<int> values)
{
    CByteArray bytes;
    for (const int value : values)
    {
        bytes.Add(static_cast<BYTE>(value));
    }
    return bytes;
}

/// The characters of a text, zero bytes included.
inline CByteArray TextBytes(std::string_view text)
{
    CByteArray bytes;
    bytes.Assign(reinterpret_cast<const BYTE*>(text.data()), static_cast<int>(text.size()));
    return bytes;
}

/// Bytes from text: pairs of hexadecimal digits, and 'quoted' characters that represent themselves. Blanks between them
/// are ignored: Stream("08 00 60 00 'CS' 02 00 'MR'").
inline CByteArray Stream(std::string_view text)
{
    const auto nibble = [](char digit) { return std::isdigit(digit) ? digit - '0' : std::toupper(digit) - 'A' + 10; };
    CByteArray bytes;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        if (text[i] == '\'')
        {
            const std::size_t end = text.find('\'', i + 1);
            bytes.Append(TextBytes(text.substr(i + 1, end - i - 1)));
            i = end;
        }
        else if (text[i] != ' ')
        {
            bytes.Add(static_cast<BYTE>(nibble(text[i]) * 16 + nibble(text[i + 1])));
            ++i;
        }
    }
    return bytes;
}

inline CByteArray operator+(CByteArray left, const CByteArray& right)
{
    left.Append(right);
    return left;
}

/// The bytes as many times as asked for.
inline CByteArray Repeated(const CByteArray& bytes, int count)
{
    CByteArray repeated;
    for (int i = 0; i < count; ++i)
    {
        repeated.Append(bytes);
    }
    return repeated;
}

inline CByteArray Repeated(int byte, int count)
{
    return Repeated(Bytes({byte}), count);
}

inline CByteArray Zeros(int count)
{
    return Repeated(0, count);
}

/// All parts, one after the other.
inline CByteArray Join(std::initializer_list<CByteArray> parts)
{
    CByteArray joined;
    for (const CByteArray& part : parts)
    {
        joined.Append(part);
    }
    return joined;
}

/// For comparisons whose failure should print the bytes.
inline std::vector<int> Numbers(const CByteArray& bytes)
{
    return {bytes.begin(), bytes.end()};
}

/// The same for streams: their hexadecimal text.
inline std::string HexText(const BYTE* bytes, std::size_t size)
{
    std::string text;
    char digits[3];
    for (std::size_t i = 0; i < size; ++i)
    {
        std::snprintf(digits, sizeof digits, "%02X", static_cast<unsigned>(bytes[i]));
        text += digits;
    }
    return text;
}

inline std::string HexText(const CByteArray& bytes)
{
    return HexText(bytes.GetData(), static_cast<std::size_t>(bytes.GetSize()));
}
