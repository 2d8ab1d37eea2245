// The parts of a page of the documentation.
#pragma once

#include "Programs.h"

#include <filesystem>
#include <string>
#include <vector>

using Lines = std::vector<std::string>;

/// The lines of a text, without their ends.
Lines LinesOf(const std::string& text);

/// The lines of a file of the project.
Lines LinesOfFile(const std::filesystem::path& path);

/// The lines of each fenced block of a language, in order.
std::vector<Lines> Blocks(const Lines& page, const std::string& language);

/// The lines of the table behind a heading ("## Modules"), with its head. Empty when there is no such heading.
Lines Table(const Lines& page, const std::string& heading);

/// README.md, CHANGELOG.md and everything in docs/.
std::vector<std::filesystem::path> AllPages();
