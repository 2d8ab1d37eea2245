#include "Varnotix/platform/Archive.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace
{

constexpr int kMinBuffer = 128;
constexpr int kMaxBuffer = 1 << 26;

} // namespace

CArchive::CArchive(CFile* file, UINT mode, int bufferSize)
    : m_file(file),
      m_loading((mode & load) != 0),
      m_bufferSize(static_cast<UINT>(std::clamp(bufferSize, kMinBuffer, kMaxBuffer)))
{
}

CArchive::~CArchive()
{
    try
    {
        Close();
    }
    catch (...)
    {
        // A destructor cannot report failures; Close does.
    }
}

void CArchive::NeedLoading() const
{
    if (m_file == nullptr)
    {
        throw CArchiveException(CArchiveException::generic);
    }
    if (!m_loading)
    {
        throw CArchiveException(CArchiveException::writeOnly);
    }
}

void CArchive::NeedStoring() const
{
    if (m_file == nullptr)
    {
        throw CArchiveException(CArchiveException::generic);
    }
    if (m_loading)
    {
        throw CArchiveException(CArchiveException::readOnly);
    }
}

BYTE* CArchive::Buffer()
{
    if (m_buffer == nullptr)
    {
        m_buffer.reset(new BYTE[m_bufferSize]);
    }
    return m_buffer.get();
}

bool CArchive::Fill()
{
    m_next = 0;
    m_filled = 0;
    m_filled = m_file->Read(Buffer(), m_bufferSize);
    return m_filled > 0;
}

void CArchive::WriteBuffered()
{
    // Emptied first: after a failed write the same bytes must not be written again at another place.
    const UINT count = std::exchange(m_filled, 0u);
    if (count > 0)
    {
        m_file->Write(m_buffer.get(), count);
    }
}

UINT CArchive::Read(void* buffer, UINT count)
{
    NeedLoading();
    BYTE* out = static_cast<BYTE*>(buffer);
    UINT done = 0;
    while (done < count)
    {
        if (m_next == m_filled)
        {
            if (count - done >= m_bufferSize)
            {
                return done + m_file->Read(out + done, count - done);
            }
            if (!Fill())
            {
                break;
            }
        }
        const UINT piece = std::min(count - done, m_filled - m_next);
        std::memcpy(out + done, m_buffer.get() + m_next, piece);
        m_next += piece;
        done += piece;
    }
    return done;
}

void CArchive::Write(const void* buffer, UINT count)
{
    NeedStoring();
    if (count == 0)
    {
        return;
    }
    if (count > m_bufferSize - m_filled)
    {
        WriteBuffered();
    }
    if (count >= m_bufferSize)
    {
        m_file->Write(buffer, count);
        return;
    }
    std::memcpy(Buffer() + m_filled, buffer, count);
    m_filled += count;
}

void CArchive::Flush()
{
    if (m_file == nullptr)
    {
        throw CArchiveException(CArchiveException::generic);
    }
    if (!m_loading)
    {
        WriteBuffered();
        m_file->Flush();
    }
    else if (m_next < m_filled)
    {
        m_file->Seek(-static_cast<long long>(m_filled - m_next), CFile::current);
    }
    m_next = 0;
    m_filled = 0;
}

void CArchive::Close()
{
    if (m_file != nullptr)
    {
        try
        {
            Flush();
        }
        catch (...)
        {
            m_file = nullptr;
            throw;
        }
        m_file = nullptr;
    }
}

bool CArchive::ReadString(CString& line)
{
    NeedLoading();
    line.Empty();
    bool found = false;
    while (m_next < m_filled || Fill())
    {
        found = true;
        const char* start = reinterpret_cast<const char*>(m_buffer.get() + m_next);
        const std::size_t left = m_filled - m_next;
        const void* lineFeed = std::memchr(start, '\n', left);
        if (lineFeed == nullptr)
        {
            line += std::string_view(start, left);
            m_next = m_filled;
            continue;
        }
        const std::size_t length = static_cast<std::size_t>(static_cast<const char*>(lineFeed) - start);
        line += std::string_view(start, length);
        m_next += static_cast<UINT>(length) + 1;
        if (line.View().ends_with('\r'))
        {
            line = line.Left(line.GetLength() - 1);
        }
        break;
    }
    return found;
}

void CArchive::WriteString(LPCTSTR text)
{
    if (text != nullptr)
    {
        WriteString(CString(text));
    }
}

void CArchive::WriteString(const CString& text)
{
    Write(static_cast<LPCTSTR>(text), static_cast<UINT>(text.GetLength()));
}

void CArchive::PutInteger(std::uint32_t value, std::size_t bytes)
{
    BYTE raw[4] = {};
    for (std::size_t i = 0; i < bytes; ++i)
    {
        raw[i] = static_cast<BYTE>(value >> (8 * i));
    }
    Write(raw, static_cast<UINT>(bytes));
}

std::uint32_t CArchive::GetInteger(std::size_t bytes)
{
    BYTE raw[4] = {};
    if (Read(raw, static_cast<UINT>(bytes)) < bytes)
    {
        throw CArchiveException(CArchiveException::endOfFile);
    }
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < bytes; ++i)
    {
        value |= static_cast<std::uint32_t>(raw[i]) << (8 * i);
    }
    return value;
}
