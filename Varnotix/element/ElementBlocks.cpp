#include "Varnotix/element/ElementBlocks.h"

#include <algorithm>
#include <atomic>
#include <new>

/// The beginning of a block. Its places follow.
struct CElementBlocks::SBlock
{
    /// Elements that are alive, and places that may still be taken.
    std::atomic<int> holders;
};

namespace
{

using SBlock = CElementBlocks::SBlock;

#if defined(__SANITIZE_ADDRESS__)
// The sanitizer sees the use of a destroyed element only where its memory is freed.
constexpr int kMostElements = 1;
#else
constexpr int kMostElements = 64;
#endif

// Of an element with memory of its own, as operator new aligns it for any class that is derived from it.
constexpr std::size_t kOwnHeader = __STDCPP_DEFAULT_NEW_ALIGNMENT__;
constexpr std::size_t kBlockHeader = std::max(sizeof(SBlock), alignof(CDcmElement));

SBlock*& BlockOf(void* element)
{
    return *(static_cast<SBlock**>(element) - 1);
}

void Release(SBlock* block, int count) noexcept
{
    if (block->holders.fetch_sub(count, std::memory_order_acq_rel) == count)
    {
        block->~SBlock();
        ::operator delete(block);
    }
}

void* MarkOwn(void* memory) noexcept
{
    void* element = static_cast<BYTE*>(memory) + kOwnHeader;
    BlockOf(element) = nullptr;
    return element;
}

} // namespace

void* CDcmElement::operator new(std::size_t size)
{
    return MarkOwn(::operator new(kOwnHeader + size));
}

void* CDcmElement::operator new(std::size_t size, const std::nothrow_t& tag) noexcept
{
    void* memory = ::operator new(kOwnHeader + size, tag);
    return memory != nullptr ? MarkOwn(memory) : nullptr;
}

void CDcmElement::operator delete(void* place) noexcept
{
    if (place == nullptr)
    {
        return;
    }
    if (SBlock* block = BlockOf(place))
    {
        Release(block, 1);
    }
    else
    {
        ::operator delete(static_cast<BYTE*>(place) - kOwnHeader);
    }
}

void CDcmElement::operator delete(void* place, const std::nothrow_t&) noexcept
{
    operator delete(place);
}

CElementBlocks::CElementBlocks(int count) : m_nextSize(std::max(count, 1)) {}

void CElementBlocks::AddBlock()
{
    const int size = std::min(m_nextSize, kMostElements);
    auto* memory = static_cast<BYTE*>(::operator new(kBlockHeader + static_cast<std::size_t>(size) * kStride));
    m_block = new (memory) SBlock{size};
    m_left = size;
    m_nextSize = size * 2;
    m_next = memory + kBlockHeader + kOwnerSize;
}

void CElementBlocks::GiveUpBlock() noexcept
{
    if (m_left > 0)
    {
        Release(m_block, m_left);
        m_left = 0;
    }
}

void CElementBlocks::Destroy(const CObArray& elements) noexcept
{
    SBlock* block = nullptr;
    int destroyed = 0;
    for (CObject* object : elements)
    {
        auto* element = static_cast<CDcmElement*>(object);
        SBlock* owner = BlockOf(element);
        if (owner == nullptr)
        {
            delete element;
            continue;
        }
        if (owner != block && destroyed > 0)
        {
            Release(block, destroyed);
            destroyed = 0;
        }
        block = owner;
        ++destroyed;
        element->CDcmElement::~CDcmElement(); // No class that is derived from it lies in a block.
    }
    if (destroyed > 0)
    {
        Release(block, destroyed);
    }
}
