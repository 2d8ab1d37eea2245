/// The decoder's place in a stream that lies in memory.
#pragma once

#include "Varnotix/codec/ByteOrder.h"
#include "Varnotix/element/SharedBytes.h"

#include <cstring>

/// Walks over bytes that the caller keeps alive. No read leaves the stream: one that does not fit reports it, and the
/// cursor is then at the end of the stream, as after a short read from a file.
class CStreamCursor
{
public:
    /// @param block the block that holds the bytes, when there is one to share; otherwise empty.
    CStreamCursor(const BYTE* data, std::size_t length, CSharedBytes block)
        : m_data(data), m_length(length), m_block(std::move(block))
    {
    }

    std::size_t Length() const { return m_length; }
    std::size_t Position() const { return m_position; }
    void Seek(std::size_t position) { m_position = position < m_length ? position : m_length; }

    std::size_t Left() const { return m_length - m_position; }

    /// The next bytes, without moving; null when the stream holds fewer.
    const BYTE* Peek(std::size_t size) const { return Left() < size ? nullptr : m_data + m_position; }

    /// The next bytes, and moves past them; null when the stream holds fewer.
    const BYTE* Take(std::size_t size)
    {
        if (m_length - m_position < size)
        {
            m_position = m_length;
            return nullptr;
        }
        const BYTE* bytes = m_data + m_position;
        m_position += size;
        return bytes;
    }

    /// Gives back some of the bytes that Take has returned last.
    void Return(std::size_t size) { m_position -= size; }

    /// As many of the next bytes as the stream holds.
    void TakeUpTo(std::size_t size, CByteArray& bytes)
    {
        const std::size_t taken = m_length - m_position < size ? m_length - m_position : size;
        bytes.Assign(m_data + m_position, static_cast<int>(taken));
        m_position += taken;
    }

    /// Bytes that Take has returned, as a view that stays valid: of the stream's own block, or of a copy.
    CSharedBytes Keep(const BYTE* bytes, std::size_t size) const
    {
        return m_block.IsEmpty() ? CSharedBytes::Copy(bytes, size)
                                 : m_block.Part(static_cast<std::size_t>(bytes - m_data), size);
    }

    /// The bytes of a value that Take has returned, as little endian ones.
    /// @param width of the numbers that the stream holds in reverse; 1 for none.
    /// @param small takes the values that are copied.
    CSharedBytes KeepValue(const BYTE* bytes, std::size_t size, std::size_t width, CByteChunks& small) const
    {
        if (width > 1)
        {
            BYTE* swapped = nullptr;
            CSharedBytes value = CSharedBytes::Allocate(size, swapped);
            Varnotix::CopySwapped(bytes, size, width, swapped);
            return value;
        }
        return size < kSharedValue ? small.Store(bytes, size) : Keep(bytes, size);
    }

private:
    // Values from here on are not copied out of a stream that the library itself holds. Below, a copy is cheaper than
    // keeping the whole stream alive for one value.
    static constexpr std::size_t kSharedValue = 65536;

    const BYTE* m_data;
    std::size_t m_length;
    std::size_t m_position = 0;
    CSharedBytes m_block;
};
