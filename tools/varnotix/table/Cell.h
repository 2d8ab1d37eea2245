/// The value of an attribute as a cell of a table.
#pragma once

#include "text/CharacterSet.h"

#include <string>
#include <vector>

/// Texts and numbers have values; others are described by their size.
struct SCell
{
    std::vector<std::string> values; ///< In UTF-8, without padding; empty for an attribute that the object lacks.
    bool areNumbers = false;         ///< The values are numbers, as JSON has them.

    /// The values with backslashes between them.
    std::string Text() const;
};

/// The value that a path names in an object; of several elements those of all, in the order of the items.
SCell CellOf(CDcmElementSet& store, const Varnotix::CElementPath& path);
