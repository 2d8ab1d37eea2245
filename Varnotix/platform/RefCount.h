/// The number of holders of an object that threads may share.
#pragma once

#include <atomic>
#include <cstddef>

/// A count of holders, which begins at one. Any thread may change it at any time.
///
/// What a holder wrote to the shared object before it released it is visible to the one that destroys it.
class CRefCount
{
public:
    CRefCount() = default;
    /// Begins with several holders, for an owner that hands them out without counting each.
    explicit CRefCount(std::size_t holders) : m_holders(holders) {}
    CRefCount(const CRefCount&) = delete;
    CRefCount& operator=(const CRefCount&) = delete;

    /// Adds a holder. The caller is one itself, so the object cannot go meanwhile.
    void Add() noexcept { m_holders.fetch_add(1, std::memory_order_relaxed); }

    /// Takes off one holder, or several that were counted in advance.
    /// @return true when these were the last; the caller then destroys the object.
    bool Release(std::size_t holders = 1) noexcept
    {
        // Only a holder can add others, so the last ones need no locked instruction, which costs more than the rest.
        return m_holders.load(std::memory_order_acquire) == holders ||
               m_holders.fetch_sub(holders, std::memory_order_acq_rel) == holders;
    }

    /// True when there is one holder, which can only be the caller.
    bool IsOne() const noexcept { return m_holders.load(std::memory_order_acquire) == 1; }

    /// Makes the caller the only holder, whatever others there were.
    void SetOne() noexcept { m_holders.store(1, std::memory_order_relaxed); }

private:
    std::atomic<std::size_t> m_holders{1};
};
