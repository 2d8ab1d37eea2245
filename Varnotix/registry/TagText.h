/// Tags as texts: two times four hexadecimal digits.
#pragma once

#include "Varnotix/platform/String.h"
#include "Varnotix/registry/Tag.h"

namespace Varnotix
{

/// Four lower-case hexadecimal digits of a 16-bit number.
inline CString HexText(int number)
{
    CString text;
    text.Format("%04x", static_cast<unsigned>(number) & 0xFFFFU);
    return text;
}

/// Reads the leading hexadecimal number of a text, as "%x" does: white space and 0x may precede it. A longer number is
/// cut to 16 bits.
/// @return false when the text does not begin with one; the number is then left as it is.
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

/// The tag of two texts, each read as by HexNumber.
inline DWORD TagOfTexts(const CString& group, const CString& element)
{
    return Tag::Make(HexNumber(group), HexNumber(element));
}

} // namespace Varnotix
