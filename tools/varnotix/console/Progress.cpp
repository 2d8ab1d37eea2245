#include "console/Progress.h"

#include "console/StandardStreams.h"
#include "console/Terminal.h"

CProgress::CProgress(std::size_t steps, const CReport& report)
    : m_steps(steps), m_isShown(steps != 1 && !report.IsQuiet() && IsTerminal(EStandardStream::Error))
{
}

CProgress::~CProgress()
{
    if (m_isShown) // The bar of a run must not go with the progress of a job.
    {
        ErasePassingLine();
    }
}

void CProgress::Step(std::size_t step)
{
    constexpr int kWidth = 40;
    constexpr std::size_t kStride = 16;
    CString line;
    if (m_steps == 0)
    {
        if (m_isShown && step > 0 && step % kStride == 0)
        {
            line.Format("%lu inputs", static_cast<unsigned long>(step));
            ShowPassingLine(line.View());
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
    line.Format("[%.*s%*s] %3u%%", filled, "########################################", kWidth - filled, "",
                static_cast<unsigned>(percent));
    ShowPassingLine(line.View());
}
