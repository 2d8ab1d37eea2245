/// The base of objects that can be made many in one block of memory.
#pragma once

#include "Varnotix/platform/Export.h"

#include <cstddef>
#include <new>

/// Gives a class its own memory operators: its objects may lie in blocks (CElementBlocks), and each is deleted like any
/// other object, on any thread. An object that new makes has memory of its own.
class VARNOTIX_EXPORT CBlockObject
{
public:
    /// Memory for one object; throws std::bad_alloc.
    static void* operator new(std::size_t size);
    /// As above; null when memory runs out.
    static void* operator new(std::size_t size, const std::nothrow_t& tag) noexcept;
    /// Makes the object in memory that the caller provides and frees.
    static void* operator new(std::size_t, void* place) noexcept { return place; }
    /// Gives back the object's own memory, or its place in a block.
    static void operator delete(void* place) noexcept;
    /// For a constructor that threw.
    static void operator delete(void* place, const std::nothrow_t& tag) noexcept;
    /// For a constructor that threw; the memory stays the caller's.
    static void operator delete(void*, void*) noexcept {}

protected:
    CBlockObject() = default;
    CBlockObject(const CBlockObject&) = default;
    CBlockObject& operator=(const CBlockObject&) = default;
    ~CBlockObject() = default;
};
