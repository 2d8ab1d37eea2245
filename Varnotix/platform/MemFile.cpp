#include "Varnotix/platform/MemFile.h"

#include <climits>

#include <algorithm>
#include <cstring>
#include <functional>
#include <limits>

using namespace Varnotix;

IMPLEMENT_DYNAMIC(CMemFile, CFile)

namespace
{

constexpr ULONGLONG kMaxLength = INT_MAX;

} // namespace

CMemFile::CMemFile(UINT growBytes) : m_growBytes(growBytes) {}

CMemFile::CMemFile(BYTE* bytes, UINT count, UINT growBytes) : CMemFile(growBytes)
{
    Attach(bytes, count, growBytes);
}

CMemFile::~CMemFile() = default;

void CMemFile::Attach(const BYTE* bytes, UINT count, UINT growBytes)
{
    if (count > kMaxLength)
    {
        ThrowMemoryException();
    }
    Detach();
    m_attached = count == 0 ? nullptr : bytes;
    m_attachedCount = m_attached == nullptr ? 0 : count;
    m_growBytes = growBytes;
}

void CMemFile::Detach() noexcept
{
    m_own.RemoveAll();
    m_attached = nullptr;
    m_attachedCount = 0;
    m_position = 0;
}

void CMemFile::DetachTo(CByteArray& out)
{
    if (m_attached != nullptr)
    {
        out.Assign(m_attached, static_cast<int>(m_attachedCount));
    }
    else
    {
        out.Swap(m_own);
    }
    Detach();
}

void CMemFile::Reserve(UINT count)
{
    if (count > kMaxLength)
    {
        ThrowMemoryException();
    }
    MakeOwn();
    m_own.Reserve(static_cast<int>(count));
}

void CMemFile::MakeOwn()
{
    if (m_attached != nullptr)
    {
        m_own.Assign(m_attached, static_cast<int>(m_attachedCount));
        m_attached = nullptr;
        m_attachedCount = 0;
    }
}

void CMemFile::GrowTo(ULONGLONG length)
{
    if (length > kMaxLength)
    {
        ThrowMemoryException();
    }
    const ULONGLONG capacity = static_cast<ULONGLONG>(m_own.GetCapacity());
    if (length > capacity)
    {
        const ULONGLONG wanted = std::max({length, capacity * 2, capacity + m_growBytes});
        m_own.Reserve(static_cast<int>(std::min(wanted, kMaxLength)));
    }
}

UINT CMemFile::Read(void* buffer, UINT count)
{
    const ULONGLONG length = GetLength();
    const ULONGLONG left = m_position < length ? length - m_position : 0;
    const UINT done = static_cast<UINT>(std::min<ULONGLONG>(left, count));
    if (done > 0)
    {
        std::memcpy(buffer, GetBufferPtr() + m_position, done);
        m_position += done;
    }
    return done;
}

void CMemFile::Write(const void* buffer, UINT count)
{
    if (count == 0)
    {
        return;
    }
    if (m_position > kMaxLength)
    {
        ThrowMemoryException();
    }
    const BYTE* source = static_cast<const BYTE*>(buffer);
    const ULONGLONG newPosition = m_position + count;
    MakeOwn();
    // Growing moves the bytes, so a source inside the file is copied first.
    CByteArray piece;
    if (!std::less<>()(source, m_own.begin()) && std::less<>()(source, m_own.end()))
    {
        piece.AppendRaw(source, static_cast<int>(count));
        source = piece.GetData();
    }
    GrowTo(newPosition);
    const int position = static_cast<int>(m_position);
    if (position > m_own.GetSize())
    {
        m_own.SetSize(position);
    }
    const int replaced = std::min(m_own.GetSize() - position, static_cast<int>(count));
    if (replaced > 0)
    {
        std::memcpy(m_own.GetData() + position, source, static_cast<std::size_t>(replaced));
    }
    m_own.AppendRaw(source + replaced, static_cast<int>(count) - replaced);
    m_position = newPosition;
}

ULONGLONG CMemFile::Seek(long long offset, UINT from)
{
    const ULONGLONG base = from == begin ? 0 : from == current ? m_position : GetLength();
    const long long start = static_cast<long long>(base);
    if (offset > std::numeric_limits<long long>::max() - start || start + offset < 0)
    {
        throw CFileException(CFileException::endOfFile, 0, CString(), "seek in");
    }
    m_position = static_cast<ULONGLONG>(start + offset);
    return m_position;
}

ULONGLONG CMemFile::GetPosition() const
{
    return m_position;
}

ULONGLONG CMemFile::GetLength() const
{
    return m_attached != nullptr ? m_attachedCount : static_cast<ULONGLONG>(m_own.GetSize());
}

void CMemFile::SetLength(ULONGLONG length)
{
    MakeOwn();
    GrowTo(length);
    m_own.SetSize(static_cast<int>(length));
    m_position = std::min(m_position, length);
}

void CMemFile::Flush() {}

void CMemFile::Close()
{
    Detach();
}

const BYTE* CMemFile::GetBufferPtr() const
{
    // Null would mean that this is not a memory file, so an empty one returns some address.
    static constexpr BYTE kEmpty = 0;
    if (m_attached != nullptr)
    {
        return m_attached;
    }
    return m_own.GetData() != nullptr ? m_own.GetData() : &kEmpty;
}
