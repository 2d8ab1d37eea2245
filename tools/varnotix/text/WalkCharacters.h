/// The character sets of the data sets that a walk passes.
#pragma once

#include "text/CharacterSet.h"

#include <optional>
#include <vector>

/// Knows the character set of each data set that a walk is in, from the object down to the innermost item.
class CWalkCharacters
{
public:
    /// Notes where the walk is; to be called at each visit.
    void Reach(const Varnotix::SWalkPlace& place);

    /// The character set of the element that was reached last. It is not looked for before it is asked for.
    const CCharacterSet& Here();

private:
    struct SLevel
    {
        const CDcmElementSet* set;
        int item;
        std::optional<CCharacterSet> characters;
    };

    std::vector<SLevel> m_levels;
};
