#if !defined(_WIN32)

#include "console/Interrupt.h"

#include <csignal>
#include <pthread.h>
#include <system_error>
#include <thread>

namespace
{

/// Waits for one of the signals, and ends the program by it.
void WaitForSignal(sigset_t watched, void (*cleanUp)())
{
    int signal = 0;
    if (sigwait(&watched, &signal) != 0)
    {
        return;
    }
    cleanUp();
    // The caller sees a program that a signal ended; a shell then ends its own loop, too.
    std::signal(signal, SIG_DFL);
    sigset_t one;
    sigemptyset(&one);
    sigaddset(&one, signal);
    pthread_sigmask(SIG_UNBLOCK, &one, nullptr);
    pthread_kill(pthread_self(), signal);
}

} // namespace

void WatchInterrupts(void (*cleanUp)())
{
    sigset_t watched;
    sigemptyset(&watched);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
    {
        struct sigaction current = {};
        // A program in the background of a script is started with interrupts ignored.
        if (sigaction(signal, nullptr, &current) == 0 && current.sa_handler != SIG_IGN)
        {
            sigaddset(&watched, signal);
        }
    }
    pthread_sigmask(SIG_BLOCK, &watched, nullptr);
    try
    {
        std::thread(&WaitForSignal, watched, cleanUp).detach();
    }
    catch (const std::system_error&)
    {
        // Without a thread the signals end the program as usual; a temporary file may stay then.
        pthread_sigmask(SIG_UNBLOCK, &watched, nullptr);
    }
}

#endif
