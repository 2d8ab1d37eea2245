#include "console/Console.h"

#include "console/StandardStreams.h"

#include <utility>

void CConsole::Print(std::string_view data)
{
    if (m_mode == EMode::Kept)
    {
        Keep(false, data);
        return;
    }
    WriteStandardOutput(data);
}

void CConsole::Message(std::string_view line)
{
    if (m_mode == EMode::Kept)
    {
        Keep(true, line);
        return;
    }
    WriteStandardError(line);
}

void CConsole::Flush()
{
    if (m_mode == EMode::Direct)
    {
        FlushStandardOutput();
    }
}

void CConsole::Do(const std::function<void()>& task)
{
    if (m_mode == EMode::Kept)
    {
        m_kept.push_back({false, {}, task});
        return;
    }
    task();
}

void CConsole::Release()
{
    for (const SPart& part : std::exchange(m_kept, {}))
    {
        if (part.task)
        {
            part.task();
        }
        else if (part.isMessage)
        {
            // Data that came before a message must not follow it on a terminal that shows both.
            FlushStandardOutput();
            WriteStandardError(part.text);
        }
        else
        {
            WriteStandardOutput(part.text);
        }
    }
    FlushStandardOutput();
}

void CConsole::Keep(bool isMessage, std::string_view text)
{
    if (m_kept.empty() || m_kept.back().isMessage != isMessage || m_kept.back().task)
    {
        m_kept.push_back({isMessage, {}});
    }
    m_kept.back().text += text;
}
