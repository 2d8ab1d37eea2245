#include "Varnotix/element/SharedBytes.h"

#include "Varnotix/platform/Exceptions.h"

#include <climits>

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace
{

constexpr std::size_t kLargeValue = 1024;
constexpr std::size_t kLargestChunk = 16384;

} // namespace

CSharedBytes::SBlock* CSharedBytes::NewBlock(std::size_t size, std::size_t views)
{
    // Raw memory: the copy is the first to touch it.
    void* memory = ::operator new(sizeof(SBlock) + size, std::nothrow);
    if (memory == nullptr)
    {
        throw CMemoryException();
    }
    return new (memory) SBlock(views);
}

CSharedBytes CSharedBytes::Allocate(std::size_t size, BYTE*& bytes)
{
    if (size > static_cast<std::size_t>(INT_MAX))
    {
        throw CMemoryException();
    }
    bytes = nullptr;
    if (size == 0)
    {
        return {};
    }
    SBlock* block = NewBlock(size, 1);
    bytes = BytesOf(block);
    return {block, bytes, size};
}

CSharedBytes CSharedBytes::Copy(const BYTE* data, std::size_t size)
{
    if (size <= kMostOwn)
    {
        return Own(data, size);
    }
    BYTE* bytes = nullptr;
    CSharedBytes result = Allocate(size, bytes);
    std::memcpy(bytes, data, size);
    return result;
}

void CSharedBytes::Free(SBlock* block)
{
    ::operator delete(block);
}

CSharedBytes CSharedBytes::Part(std::size_t offset, std::size_t size) const
{
    if (size <= kMostOwn)
    {
        return Own(Data() + offset, size);
    }
    CSharedBytes part(*this);
    part.m_place.view.data += offset; // More bytes than a view has of its own.
    part.m_size = static_cast<DWORD>(size);
    return part;
}

bool CSharedBytes::SameBytes(const CSharedBytes& other) const
{
    return m_size == other.m_size && (Data() == other.Data() || std::memcmp(Data(), other.Data(), m_size) == 0);
}

CSharedBytes CByteChunks::StoreInChunk(const BYTE* data, std::size_t size)
{
    if (size >= kLargeValue)
    {
        return CSharedBytes::Copy(data, size);
    }
    if (size > m_room)
    {
        LeaveChunk();
        // Each view holds a byte at least; the chunk itself is one more.
        m_chunk = CSharedBytes::NewBlock(m_nextChunk, m_nextChunk + 1);
        m_viewsLeft = m_nextChunk + 1;
        m_free = CSharedBytes::BytesOf(m_chunk);
        m_room = m_nextChunk;
        m_nextChunk = std::min(m_nextChunk * 2, kLargestChunk);
    }
    std::memcpy(m_free, data, size);
    CSharedBytes value(m_chunk, m_free, size);
    --m_viewsLeft;
    m_free += size;
    m_room -= size;
    return value;
}

void CByteChunks::LeaveChunk()
{
    CSharedBytes::Release(m_chunk, m_viewsLeft);
    m_chunk = nullptr;
    m_room = 0;
}
