/// Palette colour lookup tables (PS3.3 C.7.6.3.1.5 and C.7.6.3.1.6).
#pragma once

#include "Varnotix/Varnotix.h"

#include <cstdint>

/// The three tables of an object.
class CPalette
{
public:
    /// @param isSigned the first mapped value is signed.
    /// @return empty, or why there are no usable tables.
    CString Read(const CDcmElementSet& store, bool isSigned);

    /// Writes red, green and blue of a stored value. A value outside a table takes the table's first or last entry.
    void Colour(std::int64_t value, BYTE* rgb) const;

private:
    struct STable
    {
        std::int64_t entries = 0;
        std::int64_t first = 0;
        std::size_t entrySize = 1; ///< Bytes from entry to entry.
        std::size_t shownByte = 0; ///< The byte of an entry that a picture of eight bits shows.
        CSharedBytes data;
    };

    static CString ReadTable(const CDcmElementSet& store, int channel, bool isSigned, STable& table);

    STable m_tables[3];
};
