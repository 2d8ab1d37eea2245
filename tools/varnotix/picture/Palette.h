/// Palette colour lookup tables (PS3.3 C.7.6.3.1.5 and C.7.6.3.1.6).
#pragma once

#include "picture/LookupTable.h"

/// The three tables of an object.
class CPalette
{
public:
    /// @param isSigned the first mapped value is signed.
    /// @return empty, or why there are no usable tables.
    CString Read(const CDcmElementSet& store, bool isSigned);

    /// Writes red, green and blue of a stored value. A value outside a table takes the table's first or last entry.
    /// @param highest the number of full intensity: 255 or 65535.
    void Colour(std::int64_t value, int highest, std::uint16_t* rgb) const;

private:
    CLookupTable m_tables[3];
};
