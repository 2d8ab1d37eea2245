#if defined(_WIN32)

#include "console/Interrupt.h"

#include <windows.h>

namespace
{

void (*g_cleanUp)() = nullptr;

BOOL WINAPI End(DWORD event)
{
    constexpr UINT kInterrupted = 130;
    constexpr UINT kEnded = 143;
    g_cleanUp();
    ::ExitProcess(event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT ? kInterrupted : kEnded);
    return TRUE;
}

} // namespace

void WatchInterrupts(void (*cleanUp)())
{
    g_cleanUp = cleanUp;
    ::SetConsoleCtrlHandler(&End, TRUE);
}

#endif
