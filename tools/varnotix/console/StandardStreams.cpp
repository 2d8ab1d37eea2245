#include "console/StandardStreams.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <memory>
#include <system_error>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace
{

std::atomic<std::size_t> g_passing = 0; // Length of the line that is shown.

[[noreturn]] void ThrowOutputFailure(int error)
{
    if (error == EPIPE)
    {
        throw SClosedPipe();
    }
    throw COutputFailure("cannot write to the standard output: " + std::generic_category().message(error));
}

void ReadToEnd(std::FILE& stream, const char* name, CByteArray& bytes)
{
    BYTE buffer[65536];
    std::size_t read = 0;
    while ((read = std::fread(buffer, 1, sizeof buffer, &stream)) > 0)
    {
        bytes.AppendRaw(buffer, static_cast<int>(read));
    }
    if (std::ferror(&stream) != 0)
    {
        throw CFileException(CFileException::hardIO, 0, name, "read");
    }
}

} // namespace

void PrepareStandardStreams()
{
#if defined(_WIN32)
    // Text mode would translate line ends, which breaks objects and makes documents differ between systems.
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
#else
    // A stream that the caller closed would become the next file that is opened, and messages part of an output. Opened
    // for the other direction, it still fails when it is used.
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
    {
        if (::fcntl(stream, F_GETFD) < 0)
        {
            static_cast<void>(::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY));
        }
    }
#endif
#if defined(SIGPIPE)
    std::signal(SIGPIPE, SIG_IGN);
#endif
#if defined(SIGXFSZ)
    // A write beyond the user's limit then fails like one to a full disk, and the unfinished output is removed.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
}

void ReadStandardInput(CByteArray& bytes)
{
    ReadToEnd(*stdin, "standard input", bytes);
}

void ReadPipe(const CString& path, CByteArray& bytes)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(std::fopen(path, "rb"), &std::fclose);
    if (pipe == nullptr)
    {
        throw CFileException(errno == EACCES ? CFileException::accessDenied : CFileException::fileNotFound, errno, path,
                             "open");
    }
    ReadToEnd(*pipe, path, bytes);
}

void WriteStandardOutput(std::string_view text)
{
    ErasePassingLine();
    // An empty text may have no address, which the function must not be given.
    if (!text.empty() && std::fwrite(text.data(), 1, text.size(), stdout) != text.size())
    {
        ThrowOutputFailure(errno);
    }
}

void FlushStandardOutput()
{
    if (std::fflush(stdout) != 0)
    {
        ThrowOutputFailure(errno);
    }
}

void ShowPassingLine(std::string_view line)
{
    ErasePassingLine();
    std::fprintf(stderr, "\r%.*s\r", static_cast<int>(line.size()), line.data());
    std::fflush(stderr);
    g_passing = line.size();
}

void ErasePassingLine()
{
    if (const std::size_t size = g_passing.exchange(0); size > 0)
    {
        // Blanks, because not every terminal has codes that clear a line.
        std::fprintf(stderr, "\r%*s\r", static_cast<int>(size), "");
        std::fflush(stderr);
    }
}

void WriteStandardError(std::string_view line)
{
    ErasePassingLine();
    std::fwrite(line.data(), 1, line.size(), stderr);
}
