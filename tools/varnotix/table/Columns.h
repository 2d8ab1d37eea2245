/// The attributes that a table shows.
#pragma once

#include "Varnotix/Varnotix.h"

#include <string>
#include <string_view>
#include <vector>

struct SColumn
{
    std::string title;           ///< The keyword, or the path as it was given.
    Varnotix::CElementPath path; ///< Empty for the column that shows the name of the file.

    bool IsFile() const { return path.IsEmpty(); }
};

/// The title of the column with the name of the file.
inline constexpr const char* kFileTitle = "File";

/// Reads a list of paths, or "File", with commas between them. The comma in a tag, "0010,0010", does not separate.
/// @param wrong receives the first part that is not a path.
/// @return false when there is one.
bool ParseColumns(std::string_view text, std::vector<SColumn>& columns, std::string& wrong);

/// The first tag of an object that no path leads to, nor any after it; 0 when there is none before the pixel data, so
/// that all must be read.
/// @param paths none of them empty.
/// @param last the highest tag that is needed besides those of the paths.
DWORD TagAfter(const std::vector<const Varnotix::CElementPath*>& paths, DWORD last);
