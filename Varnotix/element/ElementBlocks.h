/// Memory for elements that are made together.
#pragma once

#include "Varnotix/element/DcmElement.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>

/// Makes the elements of one read or copy, many in one block of memory.
///
/// A block is freed with its last element, so elements outlive the object that made them, and each is deleted like any
/// other, on any thread. Places are not used again: an element that is kept for long keeps its block, so blocks are
/// small. Distinct objects may be used on distinct threads.
class CElementBlocks
{
public:
    struct SBlock;

    CElementBlocks() = default;
    /// @param count how many elements are expected; the first block has room for them, if they are not too many.
    explicit CElementBlocks(int count);
    CElementBlocks(const CElementBlocks&) = delete;
    CElementBlocks& operator=(const CElementBlocks&) = delete;
    ~CElementBlocks() { GiveUpBlock(); }

    /// Makes an element from the arguments of a constructor. Throws std::bad_alloc when there is no memory.
    template <class... ARGUMENTS>
    std::unique_ptr<CDcmElement> Make(ARGUMENTS&&... arguments)
    {
        if (m_left == 0)
        {
            AddBlock();
        }
        // A constructor that throws leaves the place to the next element.
        *(reinterpret_cast<SBlock**>(m_next) - 1) = m_block;
        std::unique_ptr<CDcmElement> made(::new (m_next) CDcmElement(std::forward<ARGUMENTS>(arguments)...));
        m_next += kStride;
        --m_left;
        return made;
    }

    /// Destroys elements. Those that lie in one block, one after the other, give it back in one step.
    static void Destroy(const CObArray& elements) noexcept;

private:
    // Each element has its block, or null, right in front of it.
    static constexpr std::size_t kOwnerSize = std::max(sizeof(SBlock*), alignof(CDcmElement));
    static constexpr std::size_t kStride = kOwnerSize + sizeof(CDcmElement);

    void AddBlock();
    void GiveUpBlock() noexcept;

    BYTE* m_next = nullptr; // Where the next element goes.
    int m_left = 0;         // Places that are left in the block.
    SBlock* m_block = nullptr;
    int m_nextSize = 8;
};
