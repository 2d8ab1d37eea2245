/// How far a long run is, for people at a terminal.
#pragma once

#include "console/Report.h"

#include <cstddef>

/// A line on the terminal that counts; nothing is shown elsewhere, to the quiet, or for a single step.
class CProgress
{
public:
    CProgress(std::size_t steps, const CReport& report);
    /// Clears the line.
    ~CProgress();
    CProgress(const CProgress&) = delete;
    CProgress& operator=(const CProgress&) = delete;

    /// To be called before each step, counted from 0. Messages of the step go over the line.
    void Step(std::size_t step);

private:
    std::size_t m_steps;
    bool m_isShown;
};
