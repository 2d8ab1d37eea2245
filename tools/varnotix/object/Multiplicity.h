/// How many values an attribute may have.
#pragma once

#include "Varnotix/Varnotix.h"

/// A value multiplicity (PS3.5 section 6.4): "1", "1-3", "2-2n".
struct SMultiplicity
{
    static constexpr int kNoBound = -1;

    int least = 1;
    int most = kNoBound;
    int step = 1; ///< Above the least number, counts go up by this.

    bool Allows(std::size_t count) const;
    /// As PS3.6 writes it.
    CString Text() const;
};

/// The multiplicity that PS3.6 gives an attribute; "1-n" for a tag that the dictionary file does not list.
SMultiplicity MultiplicityOf(DWORD tag);
