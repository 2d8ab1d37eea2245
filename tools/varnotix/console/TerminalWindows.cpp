#if defined(_WIN32)

#include "console/Terminal.h"

#include <cstdio>
#include <io.h>

bool IsTerminal(EStandardStream stream)
{
    return _isatty(_fileno(stream == EStandardStream::Output ? stdout : stderr)) != 0;
}

#endif
