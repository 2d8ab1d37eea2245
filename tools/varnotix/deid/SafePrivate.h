/// Private attributes that may stay.
#pragma once

#include "console/Report.h"

#include <set>
#include <string>
#include <tuple>

/// A list of private attributes by group, private creator, and number in the creator's block.
class CSafePrivate
{
public:
    /// Reads lines such as (0019,"ACME 1.0",0C). Those that begin with # and empty ones do not count.
    /// @return false, after a message, when the file cannot be read or a line is not of this form.
    bool Read(const CString& path, const CReport& report);

    /// True for a listed attribute, and for the private creator of one.
    /// @param creator of the element's block; of a creator itself its value.
    bool Holds(DWORD tag, const std::string& creator) const;

    /// True for the number of a private creator, which reserves a block (PS3.5 section 7.8.1).
    static bool IsCreator(DWORD tag);

private:
    std::set<std::tuple<int, std::string, int>> m_listed; // Group, creator, low byte of the number.
    std::set<std::pair<int, std::string>> m_creators;
};
