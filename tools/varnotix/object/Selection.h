/// Attributes that a command line names together.
#pragma once

#include "Varnotix/Varnotix.h"

#include <optional>
#include <string_view>

/// Attributes by their path, those of a group at every depth, or, without both, all private ones at every depth.
struct SSelection
{
    std::optional<Varnotix::CElementPath> path;
    std::optional<int> group;

    /// Reads a path, four hexadecimal digits for a group, or "private".
    /// @return nothing for other texts.
    static std::optional<SSelection> Parse(std::string_view text);
};
