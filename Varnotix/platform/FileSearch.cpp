#include "Varnotix/platform/FileSearch.h"

#include <cstdlib>

namespace Varnotix
{

bool MatchesWildcard(const CString& pattern, const CString& name)
{
    CString lowerPattern = pattern;
    CString lowerName = name;
    lowerPattern.MakeLower();
    lowerName.MakeLower();
    const std::string_view p = lowerPattern == "*.*" ? "*" : lowerPattern.CText();
    const std::string_view n = lowerName.CText();
    // Only the last star needs to be tried again: an earlier one cannot gain by matching more.
    std::size_t patternPlace = 0;
    std::size_t namePlace = 0;
    std::size_t star = std::string_view::npos;
    std::size_t starName = 0;
    while (namePlace < n.size())
    {
        if (patternPlace < p.size() && p[patternPlace] == '*')
        {
            star = patternPlace++;
            starName = namePlace;
        }
        else if (patternPlace < p.size() && (p[patternPlace] == '?' || p[patternPlace] == n[namePlace]))
        {
            ++patternPlace;
            ++namePlace;
        }
        else if (star != std::string_view::npos)
        {
            patternPlace = star + 1;
            namePlace = ++starName;
        }
        else
        {
            return false;
        }
    }
    return p.find_first_not_of('*', patternPlace) == std::string_view::npos;
}

CString EnvironmentVariable(LPCTSTR name)
{
    return name == nullptr ? CString() : CString(std::getenv(name));
}

} // namespace Varnotix
