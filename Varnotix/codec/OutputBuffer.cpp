#include "Varnotix/codec/OutputBuffer.h"

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
