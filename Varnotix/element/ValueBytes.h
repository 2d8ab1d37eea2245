/// The value of an element as the bytes of a stream.
#pragma once

#include "Varnotix/platform/Export.h"
#include "Varnotix/platform/Types.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

/// A view of little-endian value bytes, or bytes of its own where a value must be put together. It is valid as long as
/// the element does not change.
class VARNOTIX_EXPORT CValueBytes
{
public:
    CValueBytes() = default;
    /// Views bytes that the element keeps.
    explicit CValueBytes(std::string_view bytes) : m_view(bytes) {}
    /// Owns the bytes.
    explicit CValueBytes(std::string&& bytes)
        : m_own(std::make_unique<const std::string>(std::move(bytes))), m_view(*m_own)
    {
    }

    const BYTE* Data() const { return reinterpret_cast<const BYTE*>(m_view.data()); }
    std::size_t Size() const { return m_view.size(); }
    std::string_view View() const { return m_view; }

private:
    std::unique_ptr<const std::string> m_own; // Null for bytes that the element keeps.
    std::string_view m_view;
};
