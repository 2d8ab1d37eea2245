/// Tags as texts: two times four hexadecimal digits.
#pragma once

#include "Varnotix/platform/String.h"
#include "Varnotix/platform/Types.h"

/// Group and element in one number, group in the high half; both are cut to 16 bits.
constexpr DWORD TagNumber(int group, int element)
{
    return ((static_cast<DWORD>(group) & 0xFFFFU) << 16U) | (static_cast<DWORD>(element) & 0xFFFFU);
}

/// True when both numbers have 16 bits, so that TagNumber cuts neither.
constexpr bool IsTag(int group, int element)
{
    return group >= 0 && group <= 0xFFFF && element >= 0 && element <= 0xFFFF;
}

constexpr int GroupNumber(DWORD tag)
{
    return static_cast<int>(tag >> 16U);
}

constexpr int ElementNumber(DWORD tag)
{
    return static_cast<int>(tag & 0xFFFFU);
}

/// Four lower-case hexadecimal digits of a 16-bit number.
inline CString HexText(int number)
{
    CString text;
    text.Format("%04x", static_cast<unsigned>(number) & 0xFFFFU);
    return text;
}

/// Reads the leading hexadecimal number of a text, as "%x" does: white space and 0x may stand before it. A longer
/// number is cut to 16 bits.
/// @return false when the text does not begin with one; the number is then left alone.
bool ScanHexNumber(const CString& text, int& number);

/// True when the text begins with a hexadecimal number that 16 bits hold.
bool IsTagNumber(const CString& text);

/// The leading hexadecimal number of a text, cut to 16 bits; 0 when there is none.
inline int HexNumber(const CString& text)
{
    int number = 0;
    ScanHexNumber(text, number);
    return number;
}
