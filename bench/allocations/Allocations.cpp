// Requests for memory per element, read and written by both stream rules. Requests cost more than most of what is done
// with the memory, and do not depend on the load of the machine.

#include "Inputs.h"
#include "Varnotix/iod/DcmIOD.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>

namespace
{
long requests = 0;

void* Counted(std::size_t size)
{
    ++requests;
    return std::malloc(size > 0 ? size : 1);
}
} // namespace

// Not inlined: the compiler would take each for half of a mismatched pair.

[[gnu::noinline]] void* operator new(std::size_t size)
{
    if (void* memory = Counted(size))
    {
        return memory;
    }
    throw std::bad_alloc();
}

[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return Counted(size);
}

[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace
{
struct SCounts
{
    int elements = 0;
    long read = 0;
    long written = 0;
};

SCounts CountsOf(const CByteArray& file, EStreamRules rules)
{
    SCounts counts;
    long before = requests;
    CDcmIOD object;
    object.StreamRules(rules);
    object.Import(file);
    counts.read = requests - before;
    counts.elements = object.ElementStore().GetCountAll();
    before = requests;
    CByteArray bytes;
    object.ExportFileFormat(bytes);
    counts.written = requests - before;
    return counts;
}
} // namespace

int main()
{
    std::puts("Requests for memory per element:");
    std::printf("%-14s %-9s %9s %9s %9s\n", "input", "rules", "elements", "read", "written");
    for (const SInput& input : Inputs())
    {
        for (const EStreamRules rules : {STREAM_RULES_CLASSIC, STREAM_RULES_STANDARD})
        {
            SCounts all;
            for (const CByteArray& file : FilesOf(input))
            {
                CountsOf(file, rules); // What is made once and kept is made now.
                const SCounts counts = CountsOf(file, rules);
                all.elements += counts.elements;
                all.read += counts.read;
                all.written += counts.written;
            }
            std::printf("%-14s %-9s %9d %9.3f %9.3f\n", input.name.c_str(),
                        rules == STREAM_RULES_CLASSIC ? "classic" : "standard", all.elements,
                        static_cast<double>(all.read) / all.elements, static_cast<double>(all.written) / all.elements);
        }
    }
    return 0;
}
