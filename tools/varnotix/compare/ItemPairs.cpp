#include "compare/ItemPairs.h"

#include <algorithm>

namespace
{

using CAreEqual = std::function<bool(std::size_t, std::size_t)>;

/// The pairs that take equal items out of two ranges, by the greedy algorithm of E. Myers, "An O(ND) Difference
/// Algorithm and Its Variations" (1986). A diagonal is the number of the left item minus that of the right one.
class CShortestEdit
{
public:
    CShortestEdit(std::size_t left, std::size_t right, const CAreEqual& areEqual)
        : m_left(static_cast<int>(left)), m_right(static_cast<int>(right)), m_areEqual(areEqual)
    {
    }

    /// @return in order; none when there are too many steps.
    std::vector<SItemPair> EqualPairs();

private:
    /// Bounds the time for sequences that have little in common.
    static constexpr int kMostSteps = 128;

    /// How far each diagonal was followed: numbers of left items.
    using CReached = std::vector<int>;

    static int& At(CReached& reached, int diagonal) { return reached.begin()[diagonal + kMostSteps + 1]; }
    /// Whether the way to a diagonal comes from the one above, by a right item that is passed over.
    static bool IsFromAbove(CReached& reached, int diagonal, int steps)
    {
        return diagonal == -steps || (diagonal != steps && At(reached, diagonal - 1) < At(reached, diagonal + 1));
    }
    static int Start(CReached& reached, int diagonal, int steps)
    {
        return IsFromAbove(reached, diagonal, steps) ? At(reached, diagonal + 1) : At(reached, diagonal - 1) + 1;
    }
    bool Step(CReached& reached, int steps);
    std::vector<SItemPair> WayBack();

    int m_left;
    int m_right;
    const CAreEqual& m_areEqual;
    std::vector<CReached> m_before; // Each step.
};

std::vector<SItemPair> CShortestEdit::EqualPairs()
{
    CReached reached(2 * kMostSteps + 3);
    for (int steps = 0; steps <= std::min(kMostSteps, m_left + m_right); ++steps)
    {
        m_before.push_back(reached);
        if (Step(reached, steps))
        {
            return WayBack();
        }
    }
    return {};
}

/// @return true when both ends are reached.
bool CShortestEdit::Step(CReached& reached, int steps)
{
    for (int diagonal = -steps; diagonal <= steps; diagonal += 2)
    {
        int left = Start(reached, diagonal, steps);
        while (left < m_left && left - diagonal < m_right &&
               m_areEqual(static_cast<std::size_t>(left), static_cast<std::size_t>(left - diagonal)))
        {
            ++left;
        }
        At(reached, diagonal) = left;
        if (left >= m_left && left - diagonal >= m_right)
        {
            return true;
        }
    }
    return false;
}

std::vector<SItemPair> CShortestEdit::WayBack()
{
    std::vector<SItemPair> pairs;
    int left = m_left;
    int diagonal = m_left - m_right;
    for (int steps = static_cast<int>(m_before.size()) - 1; steps >= 0; --steps)
    {
        CReached& reached = m_before[static_cast<std::size_t>(steps)];
        const int start = steps == 0 ? 0 : Start(reached, diagonal, steps);
        for (; left > start; --left)
        {
            pairs.push_back({static_cast<std::size_t>(left - 1), static_cast<std::size_t>(left - 1 - diagonal)});
        }
        const bool isFromAbove = IsFromAbove(reached, diagonal, steps);
        left -= isFromAbove ? 0 : 1;
        diagonal += isFromAbove ? 1 : -1;
    }
    std::reverse(pairs.begin(), pairs.end());
    return pairs;
}

} // namespace

std::vector<SItemPair> PairByNumber(std::size_t left, std::size_t right)
{
    std::vector<SItemPair> pairs;
    for (std::size_t i = 0; i < std::max(left, right); ++i)
    {
        pairs.push_back({i < left ? i : SItemPair::kNone, i < right ? i : SItemPair::kNone});
    }
    return pairs;
}

std::vector<SItemPair> PairByContent(std::size_t left, std::size_t right, const CAreEqual& areEqual)
{
    std::size_t first = 0;
    std::size_t last = 0;
    const std::size_t fewer = std::min(left, right);
    while (first < fewer && areEqual(first, first))
    {
        ++first;
    }
    while (first + last < fewer && areEqual(left - last - 1, right - last - 1))
    {
        ++last;
    }
    const CAreEqual areInside = [&](std::size_t a, std::size_t b) { return areEqual(first + a, first + b); };
    std::vector<SItemPair> equal = CShortestEdit(left - first - last, right - first - last, areInside).EqualPairs();
    equal.push_back({left - first - last, right - first - last});
    std::vector<SItemPair> pairs;
    SItemPair next{0, 0};
    for (const SItemPair& one : equal)
    {
        for (const SItemPair& pair : PairByNumber(one.left - next.left, one.right - next.right))
        {
            const auto place = [first](std::size_t number, std::size_t start)
            { return number == SItemPair::kNone ? number : first + start + number; };
            pairs.push_back({place(pair.left, next.left), place(pair.right, next.right)});
        }
        next = {one.left + 1, one.right + 1};
    }
    return pairs;
}
