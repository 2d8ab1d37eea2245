/// Hashing of tags, which come from files.
#pragma once

#include "Varnotix/platform/Types.h"

#include <cstddef>
#include <cstdint>

/// An odd number that differs from run to run.
///
/// With a hash that everybody knows, a file can be made whose tags all fall on one place; reading it would take the
/// square of its length.
std::uint64_t TagSpread();

/// A place for a number, of which the low 32 bits are spread well.
constexpr std::uint64_t SpreadNumber(std::uint64_t number, std::uint64_t spread)
{
    const std::uint64_t product = number * spread;
    // Tags stand in rows, and some factors would lay a row side by side; the fixed one scatters what they leave.
    return ((product ^ (product >> 32U)) * 0x9E3779B97F4A7C15U) >> 32U;
}

/// For hash tables of the standard library whose keys are tags.
struct STagHash
{
    std::uint64_t spread = TagSpread();

    std::size_t operator()(DWORD tag) const { return static_cast<std::size_t>(SpreadNumber(tag, spread)); }
};
