// Programs and sockets for tests over the loopback interface. Nothing outlives the object that started it, and every
// wait has an end.
#pragma once

#include "Varnotix/platform/Arrays.h"

#include <csignal>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <netinet/in.h>
#include <poll.h>
#include <sstream>
#include <string>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

inline constexpr int kWaitMilliseconds = 30000;

inline bool IsInstalled(const std::string& program)
{
    const char* path = std::getenv("PATH");
    std::istringstream folders(path != nullptr ? path : "");
    for (std::string folder; std::getline(folders, folder, ':');)
    {
        if (access((folder + "/" + program).c_str(), X_OK) == 0)
        {
            return true;
        }
    }
    return false;
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

/// A socket of the loopback interface whose calls end by themselves.
class CLoopbackSocket
{
public:
    CLoopbackSocket() : CLoopbackSocket(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {}
    explicit CLoopbackSocket(int handle) : m_handle(handle)
    {
        const timeval limit = {kWaitMilliseconds / 1000, 0};
        setsockopt(m_handle, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
        setsockopt(m_handle, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
    }
    CLoopbackSocket(const CLoopbackSocket&) = delete;
    CLoopbackSocket& operator=(const CLoopbackSocket&) = delete;
    ~CLoopbackSocket() { close(m_handle); }

    int Handle() const { return m_handle; }
    bool Connect(const std::string& port) const
    {
        const sockaddr_in place = Place(port);
        return connect(m_handle, reinterpret_cast<const sockaddr*>(&place), sizeof place) == 0;
    }
    bool Bind(const std::string& port) const
    {
        const sockaddr_in place = Place(port);
        return bind(m_handle, reinterpret_cast<const sockaddr*>(&place), sizeof place) == 0;
    }
    std::string Port() const
    {
        sockaddr_in place = {};
        socklen_t size = sizeof place;
        getsockname(m_handle, reinterpret_cast<sockaddr*>(&place), &size);
        return std::to_string(ntohs(place.sin_port));
    }
    void Write(const CByteArray& bytes) const
    {
        [[maybe_unused]] const ssize_t sent =
            send(m_handle, bytes.GetData(), static_cast<std::size_t>(bytes.GetSize()), MSG_NOSIGNAL);
    }
    /// Reads until the other side closes.
    CByteArray ReadAll() const
    {
        CByteArray bytes;
        BYTE buffer[4096];
        for (ssize_t size = 0; (size = recv(m_handle, buffer, sizeof buffer, 0)) > 0;)
        {
            bytes.AppendRaw(buffer, static_cast<int>(size));
        }
        return bytes;
    }

private:
    static sockaddr_in Place(const std::string& port)
    {
        sockaddr_in place = {};
        place.sin_family = AF_INET;
        place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        place.sin_port = htons(static_cast<std::uint16_t>(std::stoi(port)));
        return place;
    }

    int m_handle;
};

/// A port that nobody listens on just now.
inline std::string FreePort()
{
    const CLoopbackSocket place;
    place.Bind("0");
    return place.Port();
}

/// True as soon as somebody listens on the port, found out without a connection that the listener would see.
inline bool WaitForListener(const std::string& port)
{
    for (int attempt = 0; attempt < 100; ++attempt)
    {
        const CLoopbackSocket place;
        const int reuse = 1;
        setsockopt(place.Handle(), SOL_SOCKET, SO_REUSEADDR, &reuse, sizeof reuse);
        if (!place.Bind(port))
        {
            return true;
        }
        const timespec pause = {0, 50000000};
        nanosleep(&pause, nullptr);
    }
    return false;
}

/// Sends the bytes to a listener and returns all of its answer.
inline CByteArray CallWith(const std::string& port, const CByteArray& bytes)
{
    const CLoopbackSocket caller;
    caller.Connect(port);
    caller.Write(bytes);
    return caller.ReadAll();
}

/// A listening socket that answers one caller.
class CSocketPort
{
public:
    CSocketPort()
    {
        m_socket.Bind("0");
        listen(m_socket.Handle(), 1);
    }
    std::string Number() const { return m_socket.Port(); }
    /// Waits for the first bytes of the caller, sends the answer, and reads until the caller closes.
    void AnswerOne(const CByteArray& answer) const
    {
        const CLoopbackSocket caller(accept(m_socket.Handle(), nullptr, nullptr));
        char first = 0;
        recv(caller.Handle(), &first, 1, MSG_PEEK);
        caller.Write(answer);
        shutdown(caller.Handle(), SHUT_WR);
        caller.ReadAll();
    }

private:
    CLoopbackSocket m_socket;
};
