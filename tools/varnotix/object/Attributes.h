/// Attribute values of objects that may hold anything.
#pragma once

#include "Varnotix/Varnotix.h"

#include <optional>
#include <string_view>

/// The texts of an attribute joined by backslashes, without blanks around; empty when there are none.
CString TextOf(const CDcmElementSet& set, DWORD tag);

/// Sets the raw bytes of an attribute, which is added when it is missing. Raw bytes, because a rewrite is compared by
/// them.
/// @param padding follows a value of odd length.
void SetText(CDcmElementSet& set, DWORD tag, std::string_view value, char padding);

/// The first number of a US attribute.
std::optional<int> WordOf(const CDcmElementSet& set, DWORD tag);

/// A whole number in text; blanks around it and a sign are allowed, nothing else.
std::optional<int> WholeNumber(const CString& text);

/// As WholeNumber for any finite decimal number.
std::optional<double> DecimalNumber(const CString& text);
