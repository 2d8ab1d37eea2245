/// Hashing of tags, which come from files.
#pragma once

#include "Varnotix/platform/Types.h"

#include <cstddef>
#include <cstdint>

/// An odd number that differs from run to run.
///
/// A fixed hash would let a crafted file put every tag in one bucket: reading it would take quadratic time.
std::uint64_t TagSpread();

/// The hash of a number; its low 32 bits are well distributed.
constexpr std::uint64_t HashNumber(std::uint64_t number, std::uint64_t spread)
{
    const std::uint64_t product = number * spread;
    // Tags come in runs, which some factors would map to adjacent places; the fixed factor scatters these.
    return ((product ^ (product >> 32U)) * 0x9E3779B97F4A7C15U) >> 32U;
}

/// For hash tables of the standard library whose keys are tags, or numbers that begin with one.
struct STagHash
{
    std::uint64_t spread = TagSpread();

    std::size_t operator()(std::uint64_t tag) const { return static_cast<std::size_t>(HashNumber(tag, spread)); }
};
