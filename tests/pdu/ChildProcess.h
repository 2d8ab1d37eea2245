// Programs that a test starts. Nothing outlives the object that started it, and every wait has an end.
#pragma once

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

inline constexpr int kWaitMilliseconds = 30000;

inline bool IsInstalled(const std::string& program)
{
    return std::system(("which " + program + " >/dev/null").c_str()) == 0;
}

/// A program whose output and errors come through one pipe. It is killed with the object.
class CChildProcess
{
public:
    explicit CChildProcess(const std::vector<std::string>& command)
    {
        std::vector<char*> arguments;
        for (const std::string& word : command)
        {
            arguments.push_back(const_cast<char*>(word.c_str()));
        }
        arguments.push_back(nullptr);
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0)
        {
            return;
        }
        m_pid = fork();
        if (m_pid == 0)
        {
            dup2(ends[1], STDOUT_FILENO);
            dup2(ends[1], STDERR_FILENO);
            execvp(arguments[0], arguments.data());
            _exit(127);
        }
        close(ends[1]);
        m_pipe = ends[0];
    }
    CChildProcess(const CChildProcess&) = delete;
    CChildProcess& operator=(const CChildProcess&) = delete;
    ~CChildProcess()
    {
        if (m_pid > 0)
        {
            kill(m_pid, SIGKILL);
            Status();
        }
        close(m_pipe);
    }

    /// The next line without its end, or what there is when the program ended or fell silent.
    std::string ReadLine()
    {
        std::string line;
        for (char letter = 0; ReadLetter(letter) && letter != '\n';)
        {
            line += letter;
        }
        return line;
    }
    /// All that is left, up to the program's end.
    std::string ReadAll()
    {
        std::string text;
        for (char letter = 0; ReadLetter(letter);)
        {
            text += letter;
        }
        return text;
    }
    /// Waits for the end, which has come when all was read.
    int Status()
    {
        if (m_pid > 0)
        {
            int status = 0;
            waitpid(m_pid, &status, 0);
            m_pid = -1;
            m_status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        }
        return m_status;
    }

private:
    bool ReadLetter(char& letter) const
    {
        pollfd entry = {m_pipe, POLLIN, 0};
        return poll(&entry, 1, kWaitMilliseconds) == 1 && read(m_pipe, &letter, 1) == 1;
    }

    pid_t m_pid = -1;
    int m_pipe = -1;
    int m_status = -1;
};
