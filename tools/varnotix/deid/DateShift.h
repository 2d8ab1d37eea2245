/// Dates and times that are moved by a number of days.
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The values of a DA, DT or TM attribute, moved. Times of day stay, and a date and time keeps its precision.
/// @param vr VR_DA, VR_DT or VR_TM.
/// @return nothing where a value cannot be read as one of the VR, or leaves the years 1 to 9999.
std::optional<std::string> ShiftDates(std::string_view values, int vr, int days);
