/// What the fuzz targets share: a promise that must hold, the input as a byte array, and the numbers at its head.
#pragma once

#include "Varnotix/platform/Arrays.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// A broken promise ends the program in the way that a fuzzer takes for a fault.
inline void Promise(bool kept, const char* what)
{
    if (!kept)
    {
        std::fprintf(stderr, "broken: %s\n", what);
        std::abort();
    }
}

inline CByteArray ToArray(const std::uint8_t* data, std::size_t size)
{
    CByteArray bytes;
    bytes.Assign(data, static_cast<int>(size));
    return bytes;
}

inline bool Same(const CByteArray& left, const CByteArray& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end());
}

/// The bytes of an input: the first ones choose settings, the rest is the data under test.
class CInput
{
public:
    CInput(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}

    /// The next byte; 0 after the end.
    unsigned Take()
    {
        if (m_size == 0)
        {
            return 0;
        }
        --m_size;
        return *m_data++;
    }

    CByteArray Rest() const { return ToArray(m_data, m_size); }

private:
    const std::uint8_t* m_data;
    std::size_t m_size;
};
