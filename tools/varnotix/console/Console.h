/// What one job prints: data to standard output, messages to standard error.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// Prints at once, or keeps what is printed until its turn, so that the output of jobs on several threads does not mix.
/// Each job has a console of its own; a console belongs to one thread at a time.
class CConsole
{
public:
    enum class EMode
    {
        Direct, ///< Prints at once.
        Kept    ///< Keeps data, messages and tasks, in the order in which they come, until Release.
    };

    explicit CConsole(EMode mode = EMode::Direct) : m_mode(mode) {}

    /// Prints data. Throws as WriteStandardOutput when it prints at once.
    void Print(std::string_view data);

    /// Prints a line of messages, which ends with a line feed.
    void Message(std::string_view line);

    /// Hands printed data on, before a message that follows it. Throws as FlushStandardOutput.
    void Flush();

    /// Does a task in its turn, at once or by Release: what jobs write to a file that they share is then in the order
    /// of what they print. Throws what the task throws.
    void Do(const std::function<void()>& task);

    /// Prints what was kept, and keeps nothing any more. Throws as WriteStandardOutput.
    void Release();

private:
    struct SPart
    {
        bool isMessage;
        std::string text;
        std::function<void()> task = {}; // Done instead of printing.
    };

    void Keep(bool isMessage, std::string_view text);

    EMode m_mode;
    std::vector<SPart> m_kept;
};
