#include "console/Progress.h"

#include "console/Terminal.h"

#include <cstdio>

CProgress::CProgress(std::size_t steps, const CReport& report)
    : m_steps(steps), m_isShown(steps != 1 && !report.IsQuiet() && IsTerminal(EStandardStream::Error))
{
}

CProgress::~CProgress()
{
    if (m_isShown)
    {
        // Blanks, because not every terminal has codes that clear a line.
        std::fprintf(stderr, "\r%*s\r", 60, "");
    }
}

void CProgress::Step(std::size_t step)
{
    constexpr int kWidth = 40;
    constexpr std::size_t kStride = 16;
    if (m_steps == 0)
    {
        if (m_isShown && step > 0 && step % kStride == 0)
        {
            std::fprintf(stderr, "\r%lu inputs\r", static_cast<unsigned long>(step));
            std::fflush(stderr);
        }
        return;
    }
    // At most once per percent.
    const std::size_t percent = step * 100 / m_steps;
    if (!m_isShown || (step > 0 && percent == (step - 1) * 100 / m_steps))
    {
        return;
    }
    const int filled = static_cast<int>(step * kWidth / m_steps);
    std::fprintf(stderr, "\r[%.*s%*s] %3u%%\r", filled, "########################################", kWidth - filled, "",
                 static_cast<unsigned>(percent));
    std::fflush(stderr);
}
