/// Tags as texts: two times four hexadecimal digits.
#pragma once

#include "Varnotix/platform/String.h"

/// Four lower-case hexadecimal digits of a 16-bit number.
inline CString HexText(int number)
{
    CString text;
    text.Format("%04x", static_cast<unsigned>(number) & 0xFFFFU);
    return text;
}

/// Reads the leading hexadecimal number of a text, as "%x" does: white space and 0x may stand before it.
/// @return false when the text does not begin with one; the number is then left alone.
bool ScanHexNumber(const CString& text, int& number);

/// The leading hexadecimal number of a text, cut to 16 bits; 0 when there is none.
inline int HexNumber(const CString& text)
{
    int number = 0;
    ScanHexNumber(text, number);
    return number;
}
