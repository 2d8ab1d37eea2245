/// A buffered, one-way stream of numbers, bytes and lines over a file.
#pragma once

#include "Varnotix/platform/File.h"

#include <concepts>
#include <memory>
#include <type_traits>

/// The integers that an archive stores: up to four bytes, little-endian, as wide as their type.
template <class TYPE>
concept ArchiveInteger = std::integral<TYPE> && !std::same_as<TYPE, bool> && sizeof(TYPE) <= 4;

/// A buffered stream over a file, in one direction. The file must live as long as the archive; it is not owned.
///
/// Contract: reading from a storing archive or writing into a loading one throws CArchiveException; failures of the
/// file pass through as they are. The destructor writes what is left and ignores failures; Close reports them.
class VARNOTIX_EXPORT CArchive
{
public:
    /// The direction.
    enum Mode : UINT
    {
        store = 0,
        load = 1
    };

    /// `bufferSize` is in bytes; sizes below 128 count as 128.
    CArchive(CFile* file, UINT mode, int bufferSize = 4096);
    ~CArchive();
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;

    bool IsLoading() const noexcept { return m_loading; }
    bool IsStoring() const noexcept { return !m_loading; }
    /// The file below; null after Close. Call Flush before using it directly.
    CFile* GetFile() const noexcept { return m_file; }

    /// Reads up to `count` bytes; fewer only at the end.
    UINT Read(void* buffer, UINT count);
    /// Writes all bytes; those that do not fit the buffer go to the file without being copied.
    void Write(const void* buffer, UINT count);
    /// Storing: writes what is buffered. Loading: drops the buffer and moves the file's position back to the first byte
    /// that was not read yet.
    void Flush();
    /// Flushes and releases the file, which stays open.
    void Close();

    /// Reads a line into `line`, without its end, which is LF or CR LF. False only when nothing is left; a last line
    /// needs no end.
    bool ReadString(CString& line);
    /// Writes the text as it is, without a line end. Null writes nothing.
    void WriteString(LPCTSTR text);
    /// Writes the whole text, zero bytes included.
    void WriteString(const CString& text);

    /// Writes the integer little-endian.
    template <ArchiveInteger TYPE>
    CArchive& operator<<(TYPE value)
    {
        PutInteger(static_cast<std::uint32_t>(value), sizeof(TYPE));
        return *this;
    }
    /// Reads the integer little-endian. With too few bytes left it throws CArchiveException endOfFile.
    template <ArchiveInteger TYPE>
    CArchive& operator>>(TYPE& value)
    {
        value = static_cast<TYPE>(GetInteger(sizeof(TYPE)));
        return *this;
    }

private:
    void NeedLoading() const;
    void NeedStoring() const;
    BYTE* Buffer();
    bool Fill();
    void WriteBuffered();
    void PutInteger(std::uint32_t value, std::size_t bytes);
    std::uint32_t GetInteger(std::size_t bytes);

    CFile* m_file;
    bool m_loading;
    UINT m_bufferSize;
    /// Allocated on first use: a reader that takes a memory file's own bytes never needs it.
    std::unique_ptr<BYTE[]> m_buffer;
    /// Loading: the bytes in [m_next, m_filled) are not yet read. Storing: those in [0, m_filled) are not yet written.
    UINT m_next = 0;
    UINT m_filled = 0;
};
