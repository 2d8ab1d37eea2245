/// Which items of two sequences are compared with each other.
#pragma once

#include <cstddef>
#include <functional>
#include <limits>
#include <vector>

/// Items by their number from 0; one of the two may be missing.
struct SItemPair
{
    static constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

    std::size_t left;
    std::size_t right;
};

/// Pairs items of the same number.
std::vector<SItemPair> PairByNumber(std::size_t left, std::size_t right);

/// Pairs the items that are left when as many equal ones as possible are taken out in order; those between two equal
/// ones by their number there. Where that takes very many steps, only equal items at both ends are taken out.
/// @param areEqual gets the number of a left item and of a right one.
/// @return without the equal items.
std::vector<SItemPair> PairByContent(std::size_t left, std::size_t right,
                                     const std::function<bool(std::size_t, std::size_t)>& areEqual);
