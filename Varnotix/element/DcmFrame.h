/// One frame of pixel data.
#pragma once

#include "Varnotix/element/SharedBytes.h"
#include "Varnotix/platform/Object.h"

#include <memory>
#include <vector>

/// The bytes of one frame, with its number.
///
/// Copies of a frame share the bytes. Asking for the byte array, which may be written to, gives the frame an array of
/// its own and ends the sharing for good.
class VARNOTIX_EXPORT CDcmFrame : public CObject
{
    DECLARE_DYNAMIC(CDcmFrame)

public:
    CDcmFrame(const CSharedBytes& bytes, int number);
    CDcmFrame(const CDcmFrame& other);
    CDcmFrame& operator=(const CDcmFrame&) = delete;
    ~CDcmFrame() override;

    int Number() const { return m_number; }

    /// Size() bytes, valid until the frame changes. It may be null for a frame without bytes.
    const BYTE* Data() const { return m_array ? m_array->GetData() : m_shared.Data(); }
    std::size_t Size() const { return m_array ? static_cast<std::size_t>(m_array->GetSize()) : m_shared.Size(); }

    /// The frame's bytes as an array that the caller may read and write; it stays owned by the frame.
    CByteArray& Array();
    /// Whether Array was called, so that the bytes may have changed.
    bool WasHandedOut() const { return m_handedOut; }

    /// Adds a fragment's bytes at the end.
    void Append(const CSharedBytes& bytes);

    /// Sizes of the fragments from which a stream filled the frame, in order, so that a frame of several fragments
    /// can be written as it was read. A frame that was filled or changed otherwise is one fragment.
    std::vector<DWORD> FragmentSizes() const;

private:
    CByteArray& OwnArray();

    CSharedBytes m_shared;
    std::unique_ptr<CByteArray> m_array;
    // All fragments of a frame that has more than one; empty otherwise.
    std::unique_ptr<std::vector<DWORD>> m_fragments;
    int m_number;
    bool m_handedOut = false;
};
