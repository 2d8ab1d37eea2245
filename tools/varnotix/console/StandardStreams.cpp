#include "console/StandardStreams.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <system_error>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#endif

namespace
{

[[noreturn]] void ThrowOutputFailure(int error)
{
    throw CWriteFailure("cannot write to the standard output: " + std::generic_category().message(error));
}

} // namespace

void PrepareStandardStreams()
{
#if defined(_WIN32)
    // Text mode would translate line ends, which breaks objects and makes documents differ between systems.
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
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
    BYTE buffer[65536];
    std::size_t read = 0;
    while ((read = std::fread(buffer, 1, sizeof buffer, stdin)) > 0)
    {
        bytes.AppendRaw(buffer, static_cast<int>(read));
    }
    if (std::ferror(stdin) != 0)
    {
        throw CFileException(CFileException::hardIO, 0, "standard input", "read");
    }
}

void WriteStandardOutput(std::string_view text)
{
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
