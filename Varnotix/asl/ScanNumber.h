/// Numbers at the beginning of a text, read as the C library's scanf does, but independent of the locale and with
/// defined results for numbers out of range.
#pragma once

#include "Varnotix/platform/Types.h"

#include <string_view>

namespace Varnotix
{

/// The result of a scan. White space before the number is skipped; what follows it is ignored.
template <class NUMBER>
struct SScanned
{
    NUMBER value = 0;     ///< 0 when the text does not begin with a number.
    bool found = false;   ///< The text begins with a number.
    bool whole = false;   ///< Nothing but white space follows it.
    bool inRange = false; ///< The type holds the number; otherwise the value is the nearest that it holds.
};

/// "%u" into 32 bits: a number with a minus sign is subtracted from 2^32.
SScanned<DWORD> ScanUnsigned(std::string_view text);
/// "%d" into 32 bits.
SScanned<int> ScanInteger(std::string_view text);
/// "%f": decimal numbers, "inf" and "nan".
SScanned<float> ScanFloat(std::string_view text);

} // namespace Varnotix
