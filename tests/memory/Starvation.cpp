#include "Starvation.h"

#include "Varnotix/element/DcmElementSet.h"
#include "Varnotix/platform/Exceptions.h"

#include <cstdlib>
#include <utility>

namespace
{

constexpr long kUnlimited = -1;

long live = 0;
SRequests requests = {};
long grantedLeft = kUnlimited;
ERefuse refusing = ERefuse::One;
bool struck = false;

bool IsGranted()
{
    if (grantedLeft != 0)
    {
        grantedLeft -= grantedLeft > 0 ? 1 : 0;
        return true;
    }
    struck = true;
    grantedLeft = refusing == ERefuse::One ? kUnlimited : 0;
    return false;
}

void* Allocate(std::size_t size)
{
    requests = {size > requests.largest ? size : requests.largest, requests.total + size};
    void* memory = IsGranted() ? std::malloc(size > 0 ? size : 1) : nullptr;
    live += memory != nullptr ? 1 : 0;
    return memory;
}

void Release(void* memory)
{
    live -= memory != nullptr ? 1 : 0;
    std::free(memory);
}

} // namespace

// Not inlined: the compiler would take each for half of a mismatched pair. The forms for arrays call these.

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
    Release(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept
{
    Release(memory);
}

[[gnu::noinline]] void operator delete(void* memory, const std::nothrow_t&) noexcept
{
    Release(memory);
}

long LiveBlocks()
{
    return live;
}

SRequests TakeRequests()
{
    return std::exchange(requests, {});
}

bool RunsOut(long granted, ERefuse refuse, const std::function<void()>& action)
{
    struck = false;
    refusing = refuse;
    grantedLeft = granted;
    try
    {
        action();
    }
    catch (const std::bad_alloc&)
    {
    }
    catch (const CMemoryException&)
    {
    }
    catch (...)
    {
        grantedLeft = kUnlimited;
        throw;
    }
    grantedLeft = kUnlimited;
    return struck;
}

void Starved::SetUp()
{
    const long before = LiveBlocks();
    const CDcmElementSet set;
    if (LiveBlocks() == before)
    {
        GTEST_SKIP() << "The library has an operator new of its own, which this program cannot stand in for.";
    }
}
