/// Progress of long runs, on a terminal.
#pragma once

#include "console/Report.h"

#include <cstddef>

/// A progress bar on standard error; shown only on a terminal, without --quiet, and for more than one step.
class CProgress
{
public:
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
