/// Lookup tables: a descriptor and its data (PS3.3 C.11.1.1 and C.7.6.3.1.5).
#pragma once

#include "Varnotix/Varnotix.h"

#include <cstdint>

/// One table. The values in it are unsigned.
class CLookupTable
{
public:
    /// @param set holds both attributes; in a sequence they are those of item 1.
    /// @param isSigned the first mapped value is signed.
    /// @return empty, or why the table cannot be used.
    CString Read(const CDcmElementSet& set, DWORD descriptorTag, DWORD dataTag, bool isSigned);

    /// The entry of an input. One outside the table takes the table's first or last entry.
    int At(std::int64_t input) const;

    /// Of an entry, as the descriptor declares it.
    int Bits() const { return m_bits; }
    int HighestEntry() const { return (1 << m_bits) - 1; }

private:
    std::int64_t m_entries = 1;
    std::int64_t m_first = 0;
    int m_bits = 8;
    std::size_t m_entrySize = 1; // Bytes from entry to entry.
    CSharedBytes m_data;
};
