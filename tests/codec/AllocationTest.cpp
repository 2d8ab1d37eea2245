// The allocation function can be stood in for only where the library takes it from the program.
#if !defined(_WIN32)

#include "StreamBytes.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

namespace
{

std::size_t largestRequest = 0;

void* Allocate(std::size_t size)
{
    largestRequest = size > largestRequest ? size : largestRequest;
    return std::malloc(size > 0 ? size : 1);
}

} // namespace

// Not inlined: the compiler would take each for half of a mismatched pair.

[[gnu::noinline]] void* operator new(std::size_t size)
{
    if (void* memory = Allocate(size))
    {
        return memory;
    }
    throw std::bad_alloc();
}

[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return Allocate(size);
}

[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, const std::nothrow_t&) noexcept
{
    std::free(memory);
}

TEST(Allocation, LengthsInTheStreamAllocateNothingThatTheStreamDoesNotHold)
{
    static const char* const kStreams[] = {
        "0800 6000 'CS' FFFF",
        "0800 6000 FFFFFF7F",
        "4000 60A1 'UT' 0000 FFFFFF7F",
        "4000 60A1 'UT' 0000 FEFFFFFF",
        "0040 A160 'UT' 0000 7FFFFFFF",
        "0028 1201 'OW' 0000 7FFFFFFE",
        "7FE0 0010 'OW' 0000 7FFFFFFE",
        "E07F 1000 'OW' 0000 FEFFFF7F",
        "E07F 1000 'OB' 0000 FFFFFFFF FEFF 00E0 FCFFFF7F 00000000",
        "E07F 1000 'OB' 0000 FFFFFFFF FEFF 00E0 00000000 FEFF 00E0 FEFFFF7F 0000",
        "7FE0 0010 'OW' 0000 FFFFFFFF FFFE E000 00000000 FFFE E000 7FFFFFFE 0000",
        "0800 4011 'SQ' 0000 FEFFFFFF FEFF 00E0 FEFFFFFF 0800 0001 'SH' FFFF",
        "0B00 1010 'UN' 0000 FEFFFF7F",
        "0200 0000 'UL' 0400 FFFFFFFF 0800 6000 'CS' FFFF",
    };
    constexpr std::size_t kProportionate = 4096;
    for (const char* text : kStreams)
    {
        const Bytes stream = Stream(text);
        largestRequest = 0;
        const SRead read(stream);
        EXPECT_LE(largestRequest, kProportionate) << text;
        EXPECT_EQ(read.set.GetCount(), 0) << text;
    }
}

#endif
