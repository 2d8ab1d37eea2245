// Programs that a test starts. Nothing outlives the object that started it, and every wait has an end.
#pragma once

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/wait.h>

inline bool IsInstalled(const std::string& program)
{
    return std::system(("which " + program + " >/dev/null").c_str()) == 0;
}

/// A command of the shell whose output and errors come through one pipe. It is ended with the object.
class CChildProcess
{
public:
    /// The shell tells its number, which is then that of the program that ends the command in time.
    explicit CChildProcess(const std::string& command)
        : m_pipe(popen(("echo $$; exec timeout 60 " + command + " 2>&1").c_str(), "r")), m_pid(std::stoi(ReadLine()))
    {
    }
    CChildProcess(const CChildProcess&) = delete;
    CChildProcess& operator=(const CChildProcess&) = delete;
    ~CChildProcess()
    {
        if (m_pipe != nullptr)
        {
            kill(m_pid, SIGTERM);
            Status();
        }
    }

    /// The next line with its end, or what there is when the program ended.
    std::string ReadLine()
    {
        std::string line;
        for (int letter = 0; !line.ends_with('\n') && (letter = std::fgetc(m_pipe)) != EOF;)
        {
            line += static_cast<char>(letter);
        }
        return line;
    }
    /// All that is left, up to the program's end.
    std::string ReadAll()
    {
        std::string text;
        for (std::string line; !(line = ReadLine()).empty();)
        {
            text += line;
        }
        return text;
    }
    /// Waits for the end, which has come when all was read.
    int Status()
    {
        const int status = pclose(m_pipe);
        m_pipe = nullptr;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    FILE* m_pipe;
    int m_pid;
};
