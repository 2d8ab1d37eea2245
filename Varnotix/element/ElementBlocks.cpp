#include "Varnotix/element/ElementBlocks.h"

#include "Varnotix/platform/RefCount.h"

#include <algorithm>
#include <new>

/// The beginning of a block. The places of its objects follow.
struct CElementBlocks::SBlock
{
    explicit SBlock(std::size_t count) : holders(count) {}

    CRefCount holders;
};

namespace
{

using SBlock = CElementBlocks::SBlock;

// Both ways in which compilers name the sanitizer.
#if defined(__SANITIZE_ADDRESS__)
#define VARNOTIX_SINGLE_OBJECTS
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VARNOTIX_SINGLE_OBJECTS
#endif
#endif

#if defined(VARNOTIX_SINGLE_OBJECTS)
// The sanitizer sees the use of a destroyed object only where its memory is freed.
constexpr std::size_t kLargestBlock = 0;
#else
constexpr std::size_t kLargestBlock = 8000;
#endif

// Of an object with memory of its own; it is aligned as by the operator new that any class has.
constexpr std::size_t kOwnHeader = __STDCPP_DEFAULT_NEW_ALIGNMENT__;
constexpr std::size_t kBlockHeader = std::max<std::size_t>(sizeof(SBlock), 8);

// Counting each object when it is made would cost a locked instruction: a block counts more than it can hold, and those
// that were not made are taken off when it is left.
constexpr std::size_t kCountedAhead = 1U << 20U;

void Release(SBlock* block, std::size_t count) noexcept
{
    if (block->holders.Release(count))
    {
        ::operator delete(block);
    }
}

} // namespace

void* CBlockObject::operator new(std::size_t size)
{
    void* object = static_cast<BYTE*>(::operator new(kOwnHeader + size)) + kOwnHeader;
    CElementBlocks::OwnerOf(object) = nullptr;
    return object;
}

void* CBlockObject::operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    try
    {
        return operator new(size);
    }
    catch (const std::bad_alloc&)
    {
        return nullptr;
    }
}

void CBlockObject::operator delete(void* place) noexcept
{
    if (place == nullptr)
    {
        return;
    }
    if (SBlock* block = CElementBlocks::OwnerOf(place))
    {
        Release(block, 1);
    }
    else
    {
        ::operator delete(static_cast<BYTE*>(place) - kOwnHeader);
    }
}

void CBlockObject::operator delete(void* place, const std::nothrow_t&) noexcept
{
    operator delete(place);
}

void CElementBlocks::AddBlock(std::size_t least)
{
    const std::size_t size = std::max(std::min(m_nextSize, kLargestBlock), least);
    auto* memory = static_cast<BYTE*>(::operator new(kBlockHeader + size));
    LeaveBlock();
    m_block = new (memory) SBlock(kCountedAhead);
    m_next = memory + kBlockHeader;
    m_left = size;
    m_nextSize = size * 2;
}

void CElementBlocks::LeaveBlock() noexcept
{
    if (m_block != nullptr)
    {
        Release(m_block, kCountedAhead - static_cast<std::size_t>(m_made));
        m_block = nullptr;
        m_made = 0;
    }
}

void CElementBlocks::CRelease::LeaveBlock() noexcept
{
    if (m_destroyed > 0)
    {
        Release(m_block, m_destroyed);
        m_destroyed = 0;
    }
}
