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

CSharedBytes CSharedBytes::Allocate(std::size_t size, BYTE*& bytes)
{
    if (size > static_cast<std::size_t>(INT_MAX))
    {
        throw CMemoryException();
    }
    CSharedBytes result;
    bytes = nullptr;
    if (size > 0)
    {
        // Raw memory: the copy is the first to touch it.
        void* memory = ::operator new(sizeof(SBlock) + size, std::nothrow);
        if (memory == nullptr)
        {
            throw CMemoryException();
        }
        result.m_block = static_cast<SBlock*>(memory);
        result.m_block->holders = 1;
        bytes = static_cast<BYTE*>(memory) + sizeof(SBlock);
        result.m_data = bytes;
        result.m_size = static_cast<DWORD>(size);
    }
    return result;
}

CSharedBytes CSharedBytes::Copy(const BYTE* data, std::size_t size)
{
    BYTE* bytes = nullptr;
    CSharedBytes result = Allocate(size, bytes);
    if (size > 0)
    {
        std::memcpy(bytes, data, size);
    }
    return result;
}

void CSharedBytes::Free(SBlock* block)
{
    ::operator delete(block);
}

CSharedBytes CSharedBytes::Part(std::size_t offset, std::size_t size) const
{
    CSharedBytes part(*this);
    part.m_data += offset;
    part.m_size = static_cast<DWORD>(size);
    return part;
}

bool CSharedBytes::SameBytes(const CSharedBytes& other) const
{
    return m_size == other.m_size && (m_data == other.m_data || std::memcmp(m_data, other.m_data, m_size) == 0);
}

void CSharedBytes::Swap(CSharedBytes& other) noexcept
{
    std::swap(m_block, other.m_block);
    std::swap(m_data, other.m_data);
    std::swap(m_size, other.m_size);
}

CSharedBytes CByteChunks::Store(const BYTE* data, std::size_t size)
{
    if (size == 0)
    {
        return {};
    }
    if (size >= kLargeValue)
    {
        return CSharedBytes::Copy(data, size);
    }
    if (size > m_room)
    {
        m_chunk = CSharedBytes::Allocate(m_nextChunk, m_free);
        m_room = m_nextChunk;
        m_nextChunk = std::min(m_nextChunk * 2, kLargestChunk);
    }
    std::memcpy(m_free, data, size);
    CSharedBytes value = m_chunk.Part(m_chunk.Size() - m_room, size);
    m_free += size;
    m_room -= size;
    return value;
}
