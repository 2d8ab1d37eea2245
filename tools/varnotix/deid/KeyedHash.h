/// Keyed hashes, random bytes and key files, by what the system offers.
#pragma once

#include "console/StandardStreams.h"

#include <array>
#include <string_view>

/// The message of the failures.
inline constexpr const char* kNoCryptography = "the system makes no keyed hashes or random bytes";

using CDigest = std::array<BYTE, 32>;

/// HMAC-SHA256 of a text. Throws CWriteFailure.
CDigest KeyedHash(std::string_view key, std::string_view text);

/// Bytes that nobody can guess. Throws CWriteFailure.
CDigest RandomBytes();

/// Creates a file that only its owner can read, where the system has such permissions.
/// @return false when it exists or cannot be created.
bool CreateKeyFile(const CString& path, std::string_view text);
