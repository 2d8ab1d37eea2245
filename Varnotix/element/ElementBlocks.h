/// Memory for elements that are made together.
#pragma once

#include "Varnotix/element/BlockObject.h"
#include "Varnotix/platform/Arrays.h"

#include <cstddef>
#include <cstdint>
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
    /// Blocks of which the first has room for so many objects of a class, unless they are too many.
    template <class OBJECT>
    static CElementBlocks For(int count)
    {
        return CElementBlocks(static_cast<std::size_t>(count > 0 ? count : 1) * kStride<OBJECT>);
    }
    CElementBlocks(const CElementBlocks&) = delete;
    CElementBlocks& operator=(const CElementBlocks&) = delete;
    ~CElementBlocks() { LeaveBlock(); }

    /// Makes an object from the arguments of a constructor. Throws std::bad_alloc when memory runs out.
    template <class OBJECT, class... ARGUMENTS>
    std::unique_ptr<OBJECT> Make(ARGUMENTS&&... arguments)
    {
        static_assert(std::is_base_of_v<CBlockObject, OBJECT> && alignof(OBJECT) <= kOwnerSize);
        if (m_left < kStride<OBJECT>)
        {
            AddBlock(kStride<OBJECT>);
        }
        BYTE* place = m_next + kOwnerSize;
        OwnerOf(place) = m_block;
        // A constructor that throws leaves the place to the next object.
        std::unique_ptr<OBJECT> made(::new (place) OBJECT(std::forward<ARGUMENTS>(arguments)...));
        m_next += kStride<OBJECT>;
        m_left -= kStride<OBJECT>;
        ++m_made;
        return made;
    }

    /// Destroys objects in blocks: one change of a block's count for all that follow each other in it.
    class CRelease
    {
    public:
        CRelease() = default;
        CRelease(const CRelease&) = delete;
        CRelease& operator=(const CRelease&) = delete;
        ~CRelease() { LeaveBlock(); }

        /// Destroys the object, whose class is the given one if it lies in a block.
        template <class OBJECT>
        void Destroy(OBJECT* object) noexcept
        {
            SBlock* block = BlockOf(object);
            if (block == nullptr)
            {
                delete object;
                return;
            }
            if (block != m_block)
            {
                LeaveBlock();
                m_block = block;
            }
            ++m_destroyed;
            object->OBJECT::~OBJECT();
        }

    private:
        void LeaveBlock() noexcept;

        SBlock* m_block = nullptr;
        std::size_t m_destroyed = 0;
    };

    /// The block that an object lies in; null for one with memory of its own. Its class may be derived from the given
    /// one, and have other bases in front of it.
    template <class OBJECT>
    static SBlock* BlockOf(OBJECT* object)
    {
        return OwnerOf(dynamic_cast<void*>(object));
    }

private:
    friend class CBlockObject;

    static constexpr std::size_t kOwnerSize = 8; // The block of an object, or null, is right in front of it.
    static constexpr std::size_t kFirstSize = 960;

    /// What an object takes in a block.
    template <class OBJECT>
    static constexpr std::size_t kStride = kOwnerSize + (sizeof(OBJECT) + kOwnerSize - 1) / kOwnerSize* kOwnerSize;

    explicit CElementBlocks(std::size_t firstSize) : m_nextSize(firstSize) {}

    static SBlock*& OwnerOf(void* place)
    {
        // As a number: compilers know that the memory in front of an object is none of its own.
        return *reinterpret_cast<SBlock**>(reinterpret_cast<std::uintptr_t>(place) - sizeof(SBlock*));
    }
    void AddBlock(std::size_t least);
    void LeaveBlock() noexcept;

    SBlock* m_block = nullptr;
    BYTE* m_next = nullptr; // Where the next object goes.
    std::size_t m_left = 0; // In the block, in bytes.
    int m_made = 0;         // Objects in the block.
    std::size_t m_nextSize = kFirstSize;
};
