#if !defined(_WIN32)

#include "console/Terminal.h"

#include <unistd.h>

bool IsTerminal(EStandardStream stream)
{
    return isatty(stream == EStandardStream::Output ? STDOUT_FILENO : STDERR_FILENO) != 0;
}

#endif
