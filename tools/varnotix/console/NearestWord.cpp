#include "console/NearestWord.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <limits>

namespace
{

std::string Lower(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

/// How many letters must be changed, removed, added, or swapped with the next one.
std::size_t Distance(const std::string& from, const std::string& to)
{
    const std::size_t width = to.size() + 1;
    std::vector<std::size_t> table((from.size() + 1) * width);
    const auto at = [&](std::size_t row, std::size_t column) -> std::size_t& { return table[row * width + column]; };
    for (std::size_t i = 0; i <= from.size(); ++i)
    {
        for (std::size_t j = 0; j <= to.size(); ++j)
        {
            if (i == 0 || j == 0)
            {
                at(i, j) = i + j;
                continue;
            }
            const std::size_t changed = at(i - 1, j - 1) + (from[i - 1] == to[j - 1] ? 0 : 1);
            at(i, j) = std::min({changed, at(i - 1, j) + 1, at(i, j - 1) + 1});
            if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1])
            {
                at(i, j) = std::min(at(i, j), at(i - 2, j - 2) + 1);
            }
        }
    }
    return at(from.size(), to.size());
}

} // namespace

std::string NearestWord(std::string_view unknown, const std::vector<std::string>& words)
{
    constexpr std::size_t kLongest = 64; // Longer words are no slips of a finger.
    const std::string wanted = Lower(unknown.substr(0, kLongest));
    std::string nearest;
    std::size_t best = std::numeric_limits<std::size_t>::max();
    for (const std::string& word : words)
    {
        const std::string known = Lower(word);
        const std::size_t distance = known.starts_with(wanted) ? 0 : Distance(wanted, known);
        if (distance < best)
        {
            best = distance;
            nearest = word;
        }
    }
    const bool isSlip = best <= wanted.size() / 2;
    return isSlip ? nearest : std::string();
}
