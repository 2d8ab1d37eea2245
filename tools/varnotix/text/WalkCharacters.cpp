#include "text/WalkCharacters.h"

#include <algorithm>

void CWalkCharacters::Reach(const Varnotix::SWalkPlace& place)
{
    const std::size_t depth = place.path.Steps().size();
    m_levels.resize(std::min(m_levels.size(), depth));
    if (m_levels.size() == depth && (m_levels.back().set != &place.set || m_levels.back().item != place.item))
    {
        m_levels.pop_back();
    }
    if (m_levels.size() < depth)
    {
        m_levels.push_back({&place.set, place.item, std::nullopt});
    }
}

const CCharacterSet& CWalkCharacters::Here()
{
    static const CCharacterSet kDefault;
    const CCharacterSet* around = &kDefault;
    for (SLevel& level : m_levels)
    {
        if (!level.characters)
        {
            level.characters = CCharacterSet::Of(*level.set, level.item, *around);
        }
        around = &*level.characters;
    }
    return *around;
}
