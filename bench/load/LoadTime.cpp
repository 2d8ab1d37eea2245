// bench_load LIBRARY: the time to load the library, both data files included. Each load takes place in a process of
// its own, because a library that was unloaded can leave things that make the next load cheaper.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace
{
constexpr int kLoads = 101;

double TimedLoad(const char* library)
{
    const auto start = std::chrono::steady_clock::now();
    const void* const loaded = dlopen(library, RTLD_NOW | RTLD_LOCAL);
    const auto end = std::chrono::steady_clock::now();
    return loaded != nullptr ? std::chrono::duration<double, std::milli>(end - start).count() : -1;
}

/// Milliseconds, or a negative number for a library that cannot be loaded.
double LoadInChild(const char* library)
{
    int ends[2];
    if (pipe(ends) != 0)
    {
        return -1;
    }
    const pid_t child = fork();
    if (child == 0)
    {
        const double time = TimedLoad(library);
        const bool sent = write(ends[1], &time, sizeof time) == sizeof time;
        _exit(sent ? 0 : 1);
    }
    double time = -1;
    if (child < 0 || read(ends[0], &time, sizeof time) != sizeof time)
    {
        time = -1;
    }
    waitpid(child, nullptr, 0);
    close(ends[0]);
    close(ends[1]);
    return time;
}
} // namespace

int main(int count, char** arguments)
{
    if (count != 2)
    {
        std::fputs("usage: bench_load LIBRARY\n", stderr);
        return 1;
    }
    std::vector<double> times;
    for (int i = 0; i < kLoads; ++i)
    {
        times.push_back(LoadInChild(arguments[1]));
        if (times.back() < 0)
        {
            std::fprintf(stderr, "bench_load: cannot load %s\n", arguments[1]);
            return 20;
        }
    }
    std::sort(times.begin(), times.end());
    std::printf("library load: %.2f ms median, %.2f ms fastest of %d\n", times[kLoads / 2], times[0], kLoads);
    return 0;
}
