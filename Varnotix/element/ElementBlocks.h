/// Memory for elements that are made together.
#pragma once

#include "Varnotix/element/BlockObject.h"
#include "Varnotix/platform/Arrays.h"

#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>

/// Makes the elements of one read or copy, with their sets and bodies, many in one block of memory.
///
/// A block is freed with its last object, so objects outlive what made them. Places are not used again: an element that
/// is kept for long keeps its block, so blocks are small. Distinct objects may be used on distinct threads.
class CElementBlocks
{
public:
    struct SBlock;

    CElementBlocks() = default;
    CElementBlocks(const CElementBlocks&) = delete;
    CElementBlocks& operator=(const CElementBlocks&) = delete;
    ~CElementBlocks() { LeaveBlock(); }

    /// Makes an object from the arguments of a constructor. Throws std::bad_alloc when there is no memory.
    template <class OBJECT, class... ARGUMENTS>
    std::unique_ptr<OBJECT> Make(ARGUMENTS&&... arguments)
    {
        static_assert(std::is_base_of_v<CBlockObject, OBJECT> && alignof(OBJECT) <= kOwnerSize);
        constexpr std::size_t kStride = kOwnerSize + (sizeof(OBJECT) + kOwnerSize - 1) / kOwnerSize * kOwnerSize;
        if (m_left < kStride)
        {
            AddBlock(kStride);
        }
        BYTE* place = m_next + kOwnerSize;
        *(reinterpret_cast<SBlock**>(place) - 1) = m_block;
        // A constructor that throws leaves the place to the next object.
        std::unique_ptr<OBJECT> made(::new (place) OBJECT(std::forward<ARGUMENTS>(arguments)...));
        m_next += kStride;
        m_left -= kStride;
        ++m_made;
        return made;
    }

    /// Destroys elements. Those that lie in one block, one after the other, give it back in one step.
    static void Destroy(const CObArray& elements) noexcept;

private:
    static constexpr std::size_t kOwnerSize = 8; // The block of an object, or null, is right in front of it.
    static constexpr std::size_t kFirstSize = 960;

    void AddBlock(std::size_t least);
    void LeaveBlock() noexcept;

    SBlock* m_block = nullptr;
    BYTE* m_next = nullptr; // Where the next object goes.
    std::size_t m_left = 0; // In the block, in bytes.
    int m_made = 0;         // Objects in the block.
    std::size_t m_nextSize = kFirstSize;
};
