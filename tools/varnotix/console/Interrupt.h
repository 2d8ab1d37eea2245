/// The end of the program by Ctrl-C, or by a signal that asks for it.
#pragma once

/// From now on, an interrupt (SIGINT), a request to end (SIGTERM) or a hangup (SIGHUP), and on Windows Ctrl-C,
/// Ctrl-Break or the closing of the console, calls a function and then ends the program: by the signal, which a shell
/// reports as status 130, 143 or 129, on Windows with status 130 or 143. Signals that the caller ignores stay ignored.
///
/// Call it before another thread begins.
/// @param cleanUp is called on a thread of its own, while the others run; it must not wait for them.
void WatchInterrupts(void (*cleanUp)());
