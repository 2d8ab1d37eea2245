// The allocation function can be stood in for only where the library takes it from the program.
#if !defined(_WIN32)

#include "StreamBytes.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace
{

std::size_t largestRequest = 0;
long allocationsLeft = -1; // Below 0: no limit.

void* Allocate(std::size_t size)
{
    largestRequest = size > largestRequest ? size : largestRequest;
    if (allocationsLeft == 0)
    {
        return nullptr;
    }
    allocationsLeft -= allocationsLeft > 0 ? 1 : 0;
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

namespace
{

/// An object with a private tag, of which each read that is to learn it needs another one.
Bytes Object(long privateElement)
{
    Bytes bytes = Stream("0D00 0000 'LO' 0200 'ab'"
                         "0800 6000 'CS' 0200 'MR'"
                         "0800 4011 'SQ' 0000 FFFFFFFF FEFF 00E0 00000000 0800 0001 'SH' 0200 'AB'"
                         "FEFF DDE0 00000000"
                         "2800 0200 'US' 0200 0300"
                         "E07F 1000 'OB' 0000 FFFFFFFF FEFF 00E0 04000000 00000000"
                         "FEFF 00E0 02000000 0102 FEFF 00E0 02000000 0304 FEFF 00E0 02000000 0304"
                         "FEFF DDE0 00000000");
    bytes[2] = static_cast<BYTE>(privateElement);
    bytes[3] = static_cast<BYTE>(0x10 + privateElement / 256);
    return bytes;
}

} // namespace

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

// An element that is being added when memory runs out may be lost, but none may be used after it is gone.
TEST(Allocation, MemoryMayRunOutAnywhereInAReadOrAWrite)
{
#if defined(__SANITIZE_ADDRESS__)
    const __lsan::ScopedDisabler leaksAllowed;
#endif
    const auto runsOut = [](long allocations, const auto& action)
    {
        allocationsLeft = allocations;
        try
        {
            action();
            allocationsLeft = -1;
            return false;
        }
        catch (const CMemoryException&)
        {
        }
        catch (const std::bad_alloc&)
        {
        }
        allocationsLeft = -1;
        return true;
    };
    const auto read = [](CDcmElementSet& set, const Bytes& object)
    {
        CMemFile file;
        file.Attach(object.data(), static_cast<UINT>(object.size()));
        CArchive archive(&file, CArchive::load);
        CDcmParser parser;
        parser.SerializeSet(archive, set);
    };
    constexpr long kEnough = 1000;
    long allocations = 0;
    for (bool failed = true; failed && allocations < kEnough; ++allocations)
    {
        const Bytes object = Object(allocations);
        CDcmElementSet set;
        failed = runsOut(allocations, [&] { read(set, object); });
        // Another read works, and whatever is left in the set can still be looked at.
        CDcmElementSet other;
        read(other, object);
        EXPECT_EQ(other.GetCount(), 5);
        Show(set);
    }
    EXPECT_GT(allocations, 20);
    EXPECT_LT(allocations, kEnough);
    allocations = 0;
    for (bool failed = true; failed && allocations < kEnough; ++allocations)
    {
        SRead object(Object(0));
        failed = runsOut(allocations, [&] { Written(object.set, SYNTAX_EXPLICIT_LITTLE, true); });
        Written(object.set, SYNTAX_EXPLICIT_LITTLE);
        EXPECT_EQ(Show(SRead(Written(object.set, SYNTAX_EXPLICIT_LITTLE)).set), Show(object.set));
        EXPECT_EQ(object.set.GetCount(), 5);
    }
    EXPECT_LT(allocations, kEnough);
}

#endif
