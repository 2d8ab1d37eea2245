/// Immutable bytes that many holders share.
#pragma once

#include "Varnotix/platform/Arrays.h"
#include "Varnotix/platform/Export.h"
#include "Varnotix/platform/RefCount.h"
#include "Varnotix/platform/ShortCopy.h"
#include "Varnotix/platform/Types.h"

#include <cstddef>
#include <string_view>
#include <utility>

/// A view of bytes in a counted block, which goes with its last view; or a few bytes of its own.
///
/// Raw values and frames are held this way, so that copying an element or a frame, or handing pixel data from a
/// stream to a store to a module and back, never copies the bytes. Views of one block may be on different threads; one
/// view belongs to one thread at a time, as any object does.
class VARNOTIX_EXPORT CSharedBytes
{
public:
    CSharedBytes() = default;
    CSharedBytes(const CSharedBytes& other) : m_place(other.m_place), m_size(other.m_size), m_isHeld(other.m_isHeld)
    {
        if (m_isHeld)
        {
            m_place.view.block->holders.Add();
        }
    }
    CSharedBytes(CSharedBytes&& other) noexcept : m_place(other.m_place), m_size(other.m_size), m_isHeld(other.m_isHeld)
    {
        other.Forget();
    }
    CSharedBytes& operator=(const CSharedBytes& other)
    {
        CSharedBytes(other).Swap(*this);
        return *this;
    }
    CSharedBytes& operator=(CSharedBytes&& other) noexcept
    {
        if (this != &other)
        {
            LeaveBlock();
            m_place = other.m_place;
            m_size = other.m_size;
            m_isHeld = other.m_isHeld;
            other.Forget();
        }
        return *this;
    }
    ~CSharedBytes() { LeaveBlock(); }

    /// A copy of the bytes; of more than a few, in a new block. Throws CMemoryException when memory runs out.
    static CSharedBytes Copy(const BYTE* data, std::size_t size);

    /// A new block whose bytes the caller fills through the returned pointer before sharing it further.
    /// Throws CMemoryException when memory runs out, and for a size beyond 2^31-1.
    static CSharedBytes Allocate(std::size_t size, BYTE*& bytes);

    /// A view of part of this view. The range must lie inside it.
    CSharedBytes Part(std::size_t offset, std::size_t size) const;

    /// Valid as long as this view is neither changed nor moved.
    const BYTE* Data() const { return m_isHeld ? m_place.view.data : m_place.own; }
    std::size_t Size() const { return m_size; }
    bool IsEmpty() const { return m_size == 0; }
    std::string_view Text() const { return {reinterpret_cast<const char*>(Data()), m_size}; }

    /// Replaces the content of an array by a copy of the bytes.
    void CopyTo(CByteArray& out) const { out.Assign(Data(), static_cast<int>(m_size)); }

    bool SameBytes(const CSharedBytes& other) const;

    void Swap(CSharedBytes& other) noexcept
    {
        std::swap(m_place, other.m_place);
        std::swap(m_size, other.m_size);
        std::swap(m_isHeld, other.m_isHeld);
    }

private:
    friend class CByteChunks;
    friend class CViewRelease;

    struct SBlock
    {
        explicit SBlock(std::size_t views) : holders(views) {}

        CRefCount holders;
    };

    // The bytes of a short view are its own: most values are short, and need neither a block nor a count.
    static constexpr std::size_t kMostOwn = 16;

    struct SView
    {
        SBlock* block;
        const BYTE* data;
    };
    union UPlace
    {
        BYTE own[kMostOwn];
        SView view;
    };

    /// A view that the block counts already.
    CSharedBytes(SBlock* block, const BYTE* data, std::size_t size) : m_size(static_cast<DWORD>(size)), m_isHeld(true)
    {
        m_place.view = {block, data};
    }
    /// Bytes of its own.
    /// @param size at most kMostOwn.
    static CSharedBytes Own(const BYTE* data, std::size_t size)
    {
        static_assert(kMostOwn <= Varnotix::kLongestShortCopy);
        CSharedBytes result;
        Varnotix::CopyShort(data, size, result.m_place.own);
        result.m_size = static_cast<DWORD>(size);
        return result;
    }

    static SBlock* NewBlock(std::size_t size, std::size_t views);
    static BYTE* BytesOf(SBlock* block) { return reinterpret_cast<BYTE*>(block) + sizeof(SBlock); }
    void LeaveBlock() noexcept
    {
        if (m_isHeld)
        {
            Release(m_place.view.block, 1);
        }
    }
    void Forget() noexcept
    {
        m_size = 0;
        m_isHeld = false;
    }
    static void Free(SBlock* block);
    /// Takes views off the count of a block, which may be null.
    static void Release(SBlock* block, std::size_t views)
    {
        if (block != nullptr && block->holders.Release(views))
        {
            Free(block);
        }
    }

    UPlace m_place{};
    DWORD m_size = 0;
    bool m_isHeld = false; // The bytes lie in a block.
};

/// Keeps the many small values of one read together: a few blocks instead of one a value.
class CByteChunks
{
public:
    CByteChunks() = default;
    CByteChunks(const CByteChunks&) = delete;
    CByteChunks& operator=(const CByteChunks&) = delete;
    ~CByteChunks() { LeaveChunk(); }

    /// A shared copy of the bytes. Small values share a chunk; a large one gets a block of its own, so that an
    /// element that is kept for long does not keep much else alive.
    CSharedBytes Store(const BYTE* data, std::size_t size)
    {
        return size <= CSharedBytes::kMostOwn ? CSharedBytes::Own(data, size) : StoreInChunk(data, size);
    }

private:
    CSharedBytes StoreInChunk(const BYTE* data, std::size_t size);
    void LeaveChunk();

    // Counting each view when it is made would cost a locked instruction per value: a chunk counts as many as it can
    // hold when it is made, and those that were not handed out are taken off when it is left.
    CSharedBytes::SBlock* m_chunk = nullptr;
    std::size_t m_viewsLeft = 0;
    BYTE* m_free = nullptr;
    std::size_t m_room = 0;
    std::size_t m_nextChunk = 1024;
};

/// Releases many views: one change of the count for all that follow each other in one block.
class CViewRelease
{
public:
    CViewRelease() = default;
    CViewRelease(const CViewRelease&) = delete;
    CViewRelease& operator=(const CViewRelease&) = delete;
    ~CViewRelease() { CSharedBytes::Release(m_block, m_views); }

    /// Takes the view of a block, which is empty afterwards. Its bytes are valid no longer.
    void Take(CSharedBytes& view)
    {
        if (!view.m_isHeld)
        {
            return;
        }
        if (view.m_place.view.block != m_block)
        {
            CSharedBytes::Release(m_block, m_views);
            m_block = view.m_place.view.block;
            m_views = 0;
        }
        ++m_views;
        view.Forget();
    }

private:
    CSharedBytes::SBlock* m_block = nullptr;
    std::size_t m_views = 0;
};
