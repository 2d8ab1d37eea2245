/// Files in memory.
#pragma once

#include "Varnotix/platform/Arrays.h"
#include "Varnotix/platform/File.h"

/// A file in memory. It is always open and has no path.
///
/// Contract: the cost of writing is linear in the bytes written, however small the writes. A write after the end fills
/// the gap with zero bytes. A length above 2^31-1 throws CMemoryException and leaves the file unchanged.
class VARNOTIX_EXPORT CMemFile : public CFile
{
    DECLARE_DYNAMIC(CMemFile)
    /// An empty file that grows by at least `growBytes`.
    explicit CMemFile(UINT growBytes = 1024);
    /// As Attach.
    CMemFile(BYTE* bytes, UINT count, UINT growBytes = 0);
    ~CMemFile() override;

    /// Reads the caller's bytes in place, from position 0. They are not copied, not owned and never changed: the first
    /// write works on a copy. They must live as long as they are attached.
    void Attach(const BYTE* bytes, UINT count, UINT growBytes = 0);
    /// Drops the content and leaves the file empty.
    void Detach() noexcept;
    /// Replaces `out` by the content and leaves the file empty. The file's own bytes are moved, not copied.
    void DetachTo(CByteArray& out);
    /// Makes room for `count` bytes.
    void Reserve(UINT count);

    UINT Read(void* buffer, UINT count) override;
    void Write(const void* buffer, UINT count) override;
    ULONGLONG Seek(long long offset, UINT from) override;
    ULONGLONG GetPosition() const override;
    ULONGLONG GetLength() const override;
    void SetLength(ULONGLONG length) override;
    void Flush() override;
    /// Empties the file.
    void Close() override;
    const BYTE* GetBufferPtr() const override;

private:
    void MakeOwn();
    void GrowTo(ULONGLONG length);

    CByteArray m_own;
    const BYTE* m_attached = nullptr;
    UINT m_attachedCount = 0;
    UINT m_growBytes;
    ULONGLONG m_position = 0;
};
