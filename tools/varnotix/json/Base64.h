/// Bytes as text (RFC 4648 section 4).
#pragma once

#include "Varnotix/Varnotix.h"

#include <optional>
#include <string>
#include <string_view>

/// Encodes bytes that come in parts.
class CBase64Encoder
{
public:
    /// Appends what is complete to the text; up to two bytes wait for the next part.
    void Append(std::string_view bytes, std::string& text);
    /// Appends the rest, with padding.
    void Finish(std::string& text);

private:
    unsigned m_waiting = 0; // The bits of the bytes that wait.
    int m_count = 0;        // How many bytes wait.
};

/// Decodes a whole text, which may hold line breaks and blanks.
/// @return nothing for a text that is not Base64.
std::optional<CSharedBytes> DecodeBase64(std::string_view text);
