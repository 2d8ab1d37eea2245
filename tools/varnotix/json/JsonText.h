/// Strings and numbers of JSON (RFC 8259).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Appends a text in UTF-8 as a string, with its quotes.
void AppendJsonString(std::string& json, std::string_view text);

/// Appends a number, in as many digits as it takes to read the same one again; one that is not finite as a string.
void AppendJsonNumber(std::string& json, double number);
void AppendJsonNumber(std::string& json, float number);

/// Appends an integer; as a string where readers that know only doubles would round it.
void AppendJsonInteger(std::string& json, std::int64_t number);
void AppendJsonInteger(std::string& json, std::uint64_t number);

/// The number that a text of VR DS holds. JSON lacks a sign of plus, leading zeros, and a point at an end; all else is
/// kept as it is written.
/// @return nothing for a text that is not a decimal number.
std::optional<std::string> JsonNumberOfDecimal(std::string_view text);

/// As above for VR IS, whose numbers have 32 bits.
std::optional<std::string> JsonNumberOfInteger(std::string_view text);
