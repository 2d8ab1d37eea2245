/// Attribute values of objects that may hold anything.
#pragma once

#include "Varnotix/Varnotix.h"

#include <optional>

/// The first element of a tag at the top level of a set, or null.
const CDcmElement* FindTag(const CDcmElementSet& set, DWORD tag);

/// The texts of an attribute joined by backslashes, without blanks around; empty when there are none.
CString TextOf(const CDcmElementSet& set, DWORD tag);

/// The first number of a US attribute.
std::optional<int> WordOf(const CDcmElementSet& set, DWORD tag);

/// A whole number in text; blanks around it and a sign are allowed, nothing else.
std::optional<int> WholeNumber(const CString& text);

/// As WholeNumber for any finite decimal number.
std::optional<double> DecimalNumber(const CString& text);
