/// The key of a de-identification: equal keys give equal new values in every run.
#pragma once

#include "console/Report.h"
#include "deid/KeyedHash.h"

#include <optional>
#include <string>

class CDeidKey
{
public:
    /// A key that no other run has.
    static CDeidKey Random();

    /// The key in a file, which is made when it does not exist.
    /// @return nothing, after a message, when it cannot be read or made, or is too short to protect anything.
    static std::optional<CDeidKey> OfFile(const CString& path, const CReport& report);

    /// A hash of a text.
    /// @param purpose texts hashed for one purpose do not give away those for another.
    CDigest Hash(std::string_view purpose, std::string_view text) const;

    /// Upper-case hexadecimal digits of a hash.
    /// @param digits 64 at most.
    CString HexOf(std::string_view purpose, std::string_view text, std::size_t digits) const;

private:
    explicit CDeidKey(std::string text) : m_text(std::move(text)) {}

    std::string m_text;
};
