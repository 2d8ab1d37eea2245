// Byte arrays written out in tests.
#pragma once

#include "Varnotix/platform/Arrays.h"

#include <initializer_list>
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

inline CByteArray Bytes(const std::vector<BYTE>& values)
{
    CByteArray bytes;
    bytes.Assign(values.data(), static_cast<int>(values.size()));
    return bytes;
}

/// The characters of a text, zero bytes included.
inline CByteArray TextBytes(std::string_view text)
{
    CByteArray bytes;
    bytes.Assign(reinterpret_cast<const BYTE*>(text.data()), static_cast<int>(text.size()));
    return bytes;
}

inline CByteArray Zeros(int count)
{
    CByteArray bytes;
    bytes.SetSize(count);
    return bytes;
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

/// All parts, one behind the other.
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
