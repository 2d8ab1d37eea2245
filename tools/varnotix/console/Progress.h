/// Progress of long runs, on a terminal.
#pragma once

#include "console/Report.h"

#include <cstddef>

/// A progress bar on standard error, or the number of steps where their sum is not known; shown only on a terminal,
/// without --quiet, and for more than one step.
class CProgress
{
public:
    /// @param steps how many there will be; 0 when that is not known.
    CProgress(std::size_t steps, const CReport& report);
    /// Clears the line.
    ~CProgress();
    CProgress(const CProgress&) = delete;
    CProgress& operator=(const CProgress&) = delete;

    /// Call before each step, counted from 0. Messages of the step overwrite the bar.
    void Step(std::size_t step);

private:
    std::size_t m_steps;
    bool m_isShown;
};
