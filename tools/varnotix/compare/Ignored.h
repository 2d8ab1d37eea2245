/// Differences that do not count.
#pragma once

#include "Varnotix/Varnotix.h"

#include <set>
#include <vector>

/// Elements and items that a comparison leaves out.
class CIgnored
{
public:
    /// Adds a path; a group as four hexadecimal digits; or "private" for the odd groups. Groups count at every depth.
    /// @return false for another text.
    bool Add(const CString& text);

    /// @param path whole tags and numbers of items; it ends in an item where that is meant.
    /// @param creator of the last step, where that is private.
    bool Has(const Varnotix::CElementPath& path, const CString& creator) const;

private:
    std::vector<Varnotix::CElementPath> m_paths;
    std::set<int> m_groups;
    bool m_isPrivate = false;
};
