#include "Varnotix/codec/OutputBuffer.h"

#include "Varnotix/platform/MemFile.h"

#include <climits>

#include <algorithm>

void COutputBuffer::Flush()
{
    if (m_used > 0)
    {
        m_archive.Write(m_bytes.data(), static_cast<UINT>(m_used));
        m_used = 0;
    }
}

void COutputBuffer::PutLarge(const void* bytes, std::size_t size)
{
    Flush();
    if (size > m_bytes.size())
    {
        m_archive.Write(bytes, static_cast<UINT>(size));
    }
    else
    {
        Put(bytes, size);
    }
}

void COutputBuffer::Reserve(std::uint64_t size)
{
    m_archive.Flush();
    if (auto* memory = dynamic_cast<CMemFile*>(m_archive.GetFile()))
    {
        memory->Reserve(static_cast<UINT>(std::min<std::uint64_t>(memory->GetPosition() + size, INT_MAX)));
    }
}
