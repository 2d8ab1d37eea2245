#include "picture/RleEncoder.h"

#include <algorithm>
#include <array>
#include <vector>

namespace
{

constexpr std::size_t kHeaderSize = 64;
constexpr std::ptrdiff_t kLongest = 128; // Bytes of a run, and of a literal.

using CBytes = std::vector<BYTE>;

/// Appends the PackBits form of a row.
void EncodeRow(const CBytes& row, CBytes& encoded)
{
    auto next = row.begin();
    while (next != row.end())
    {
        const auto limit = next + std::min(kLongest, row.end() - next);
        auto end = std::find_if(next, limit, [&](BYTE byte) { return byte != *next; });
        if (end - next > 1)
        {
            encoded.push_back(static_cast<BYTE>(1 - (end - next)));
            encoded.push_back(*next);
        }
        else
        {
            end = std::adjacent_find(next, limit);
            encoded.push_back(static_cast<BYTE>(end - next - 1));
            encoded.insert(encoded.end(), next, end);
        }
        next = end;
    }
}

/// The bytes at a place in the samples of all rows, encoded.
CBytes EncodePlane(const SImageHeader& header, const BYTE* first, std::size_t step)
{
    CBytes encoded;
    CBytes row(static_cast<std::size_t>(header.columns));
    for (int i = 0; i < header.rows; ++i)
    {
        for (BYTE& byte : row)
        {
            byte = *first;
            first += step;
        }
        EncodeRow(row, encoded);
    }
    if (encoded.size() % 2 != 0)
    {
        encoded.push_back(0);
    }
    return encoded;
}

void PutNumber(CBytes& bytes, std::size_t place, std::size_t number)
{
    for (std::size_t i = 0; i < 4; ++i)
    {
        bytes[place + i] = static_cast<BYTE>(number >> (8 * i));
    }
}

} // namespace

CByteArray EncodeRleFrame(const SImageHeader& header, const CByteArray& pixels)
{
    const auto sampleSize = static_cast<std::size_t>(header.allocated / 8);
    const std::size_t planes = static_cast<std::size_t>(header.samples) * sampleSize;
    CBytes frame(kHeaderSize);
    PutNumber(frame, 0, planes);
    for (std::size_t plane = 0; plane < planes; ++plane)
    {
        const std::size_t place = plane / sampleSize * sampleSize + (sampleSize - 1 - plane % sampleSize);
        PutNumber(frame, 4 * (plane + 1), frame.size());
        const CBytes encoded = EncodePlane(header, pixels.GetData() + place, planes);
        frame.insert(frame.end(), encoded.begin(), encoded.end());
    }
    CByteArray bytes;
    bytes.Assign(frame.data(), static_cast<int>(frame.size()));
    return bytes;
}
