/// Gathers the small pieces of an encoded stream before they go to an archive.
#pragma once

#include "Varnotix/element/DcmElement.h"
#include "Varnotix/platform/Archive.h"
#include "Varnotix/platform/ShortCopy.h"

#include <array>
#include <cstdint>
#include <cstring>

/// Small pieces are copied together; large ones, mostly frames, go to the archive without a copy.
class COutputBuffer
{
public:
    explicit COutputBuffer(CArchive& archive) : m_archive(archive) {}

    void Put(const void* bytes, std::size_t size)
    {
        if (size > m_bytes.size() - m_used)
        {
            PutLarge(bytes, size);
        }
        else if (size <= Varnotix::kLongestShortCopy)
        {
            Varnotix::CopyShort(static_cast<const BYTE*>(bytes), size, m_bytes.data() + m_used);
            m_used += size;
        }
        else
        {
            std::memcpy(m_bytes.data() + m_used, bytes, size);
            m_used += size;
        }
    }

    /// Room for a piece that the caller fills in place; at most kLargestPiece bytes.
    BYTE* Room(std::size_t size)
    {
        if (size > m_bytes.size() - m_used)
        {
            Flush();
        }
        BYTE* room = m_bytes.data() + m_used;
        m_used += size;
        return room;
    }

    /// Makes room for so many bytes more, where the archive writes to memory.
    void Reserve(std::uint64_t size);

    void Flush();

    static constexpr std::size_t kLargestPiece = 4096;

private:
    void PutLarge(const void* bytes, std::size_t size);

    CArchive& m_archive;
    std::size_t m_used = 0;
    std::array<BYTE, 8 * kLargestPiece> m_bytes;
};
