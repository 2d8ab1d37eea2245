/// Immutable bytes that many holders share.
#pragma once

#include "Varnotix/platform/Arrays.h"
#include "Varnotix/platform/Export.h"
#include "Varnotix/platform/Types.h"

#include <cstddef>
#include <string_view>

/// A view of bytes in a counted block; the block goes with its last view.
///
/// Raw values and frames are held this way, so that copying an element or a frame, or handing pixel data from a
/// stream to a store to a module and back, never copies the bytes. The count is not atomic: like the whole library,
/// views of one block belong to one thread at a time.
class VARNOTIX_EXPORT CSharedBytes
{
public:
    CSharedBytes() = default;
    CSharedBytes(const CSharedBytes& other) : m_block(other.m_block), m_data(other.m_data), m_size(other.m_size)
    {
        Hold();
    }
    CSharedBytes(CSharedBytes&& other) noexcept : m_block(other.m_block), m_data(other.m_data), m_size(other.m_size)
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
        CSharedBytes(static_cast<CSharedBytes&&>(other)).Swap(*this);
        return *this;
    }
    ~CSharedBytes()
    {
        if (m_block != nullptr && --m_block->holders == 0)
        {
            Free(m_block);
        }
    }

    /// A new block that holds a copy of the bytes. Throws CMemoryException when there is no memory.
    static CSharedBytes Copy(const BYTE* data, std::size_t size);

    /// A new block whose bytes the caller fills through the returned pointer before sharing it further.
    /// Throws CMemoryException when there is no memory, and for a size beyond 2^31-1.
    static CSharedBytes Allocate(std::size_t size, BYTE*& bytes);

    /// A view of part of this view. The range must lie inside it.
    CSharedBytes Part(std::size_t offset, std::size_t size) const;

    const BYTE* Data() const { return m_data; }
    std::size_t Size() const { return m_size; }
    bool IsEmpty() const { return m_size == 0; }
    std::string_view Text() const { return {reinterpret_cast<const char*>(m_data), m_size}; }

    /// Replaces the content of an array by a copy of the bytes.
    void CopyTo(CByteArray& out) const { out.Assign(m_data, static_cast<int>(m_size)); }

    bool SameBytes(const CSharedBytes& other) const;

    void Swap(CSharedBytes& other) noexcept;

private:
    struct SBlock
    {
        std::size_t holders;
    };

    void Hold() const
    {
        if (m_block != nullptr)
        {
            ++m_block->holders;
        }
    }
    void Forget() noexcept
    {
        m_block = nullptr;
        m_data = nullptr;
        m_size = 0;
    }
    static void Free(SBlock* block);

    SBlock* m_block = nullptr;
    const BYTE* m_data = nullptr;
    DWORD m_size = 0;
};

/// Keeps the many small values of one read together: a few blocks instead of one a value.
class CByteChunks
{
public:
    /// A shared copy of the bytes. Small values share a chunk; a large one gets a block of its own, so that an
    /// element that is kept for long does not keep much else alive.
    CSharedBytes Store(const BYTE* data, std::size_t size);

private:
    CSharedBytes m_chunk;
    BYTE* m_free = nullptr;
    std::size_t m_room = 0;
    std::size_t m_nextChunk = 1024;
};
