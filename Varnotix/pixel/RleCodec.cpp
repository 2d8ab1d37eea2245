#include "Varnotix/pixel/RleCodec.h"

#include "Varnotix/pixel/PackBits.h"
#include "Varnotix/platform/Exceptions.h"

#include <climits>

#include <algorithm>
#include <array>
#include <cstdint>

namespace Varnotix
{

namespace
{

constexpr std::size_t kHeaderSize = 64;
constexpr std::size_t kMaxSegments = 16;
constexpr std::size_t kStarts = 15; // That the header holds. What follows them only ever ends the fifteenth segment.
constexpr int kLastGrayOrPalette = 2;
constexpr int kRgb = 3;
constexpr std::size_t kRgbSamples = 3;

/// A little-endian number of the input; bytes that the input lacks count as zero.
std::uint32_t NumberAt(const CByteArray& bytes, std::size_t position)
{
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < 4; ++i)
    {
        const std::size_t place = position + i;
        const std::uint32_t byte = place < static_cast<std::size_t>(bytes.GetSize()) ? bytes.GetData()[place] : 0U;
        number |= byte << (8 * i);
    }
    return number;
}

void PutNumber(BYTE* bytes, std::uint32_t number)
{
    for (unsigned i = 0; i < 4; ++i)
    {
        bytes[i] = static_cast<BYTE>(number >> (8 * i));
    }
}

bool IsGrayOrPalette(int photometric)
{
    return photometric >= 0 && photometric <= kLastGrayOrPalette;
}

/// Product of sizes, or CMemoryException when an array cannot hold so many bytes.
std::size_t Product(std::initializer_list<std::size_t> factors)
{
    std::uint64_t product = 1;
    for (const std::size_t factor : factors)
    {
        product *= factor;
        if (product > static_cast<std::uint64_t>(INT_MAX))
        {
            // A later factor of zero makes the whole size zero.
            if (std::find(factors.begin(), factors.end(), std::size_t{0}) != factors.end())
            {
                return 0;
            }
            throw CMemoryException();
        }
    }
    return static_cast<std::size_t>(product);
}

/// The red, green and blue bytes of interleaved pixels, each by themselves.
std::array<std::vector<BYTE>, kRgbSamples> Planes(const BYTE* data, std::size_t pixels)
{
    std::array<std::vector<BYTE>, kRgbSamples> planes;
    for (std::vector<BYTE>& plane : planes)
    {
        plane.resize(pixels);
    }
    for (std::size_t k = 0; k < pixels; ++k)
    {
        planes[0][k] = data[0];
        planes[1][k] = data[1];
        planes[2][k] = data[2];
        data += kRgbSamples;
    }
    return planes;
}

} // namespace

void RleDecode(const SRleImage& image, const CByteArray& rle, CByteArray& pixels)
{
    const std::size_t capacity =
        Product({static_cast<std::size_t>(image.bitsAllocated / 8), static_cast<std::size_t>(image.columns),
                 static_cast<std::size_t>(image.rows)});
    const std::size_t segments = std::min<std::size_t>(NumberAt(rle, 0), kMaxSegments);
    const bool interleaved = segments == 1 || (segments == 2 && IsGrayOrPalette(image.photometric)) ||
                             (segments == kRgbSamples && image.photometric == kRgb);
    const std::size_t before = interleaved ? 0 : static_cast<std::size_t>(pixels.GetSize());
    const std::size_t added = Product({segments, capacity});
    if (before + added > static_cast<std::size_t>(INT_MAX))
    {
        throw CMemoryException();
    }
    CByteArray decoded;
    decoded.SetSize(static_cast<int>(added));
    const std::size_t stride = interleaved ? segments : 1;
    const auto size = static_cast<std::uint32_t>(rle.GetSize());
    for (std::size_t i = 0; i < std::min(segments, kStarts); ++i)
    {
        const std::uint32_t start = NumberAt(rle, 4 + 4 * i);
        const std::uint32_t next = NumberAt(rle, 8 + 4 * i);
        const std::int64_t end =
            next != 0 ? next : static_cast<std::int64_t>(size) - static_cast<std::int64_t>(kHeaderSize);
        if (start < size && end > start && capacity > 0)
        {
            BYTE* target = decoded.GetData() + (interleaved ? i : i * capacity);
            DecodePackBits({rle.GetData() + start, size - start}, static_cast<std::size_t>(end - start), target,
                           capacity, stride);
        }
    }
    if (interleaved)
    {
        pixels.Swap(decoded);
    }
    else
    {
        pixels.Append(decoded);
    }
}

void RleEncode(const SRleImage& image, CByteArray& data)
{
    const auto size = static_cast<std::size_t>(data.GetSize());
    std::vector<std::vector<BYTE>> segments;
    if (IsGrayOrPalette(image.photometric))
    {
        segments.push_back(EncodePackBits({data.GetData(), size}));
    }
    else if (image.photometric == kRgb)
    {
        const std::uint64_t pixels = static_cast<std::uint64_t>(image.rows) * static_cast<std::uint64_t>(image.columns);
        const std::size_t plane = pixels <= size / kRgbSamples ? static_cast<std::size_t>(pixels) : 0;
        for (const std::vector<BYTE>& samples : Planes(data.GetData(), plane))
        {
            segments.push_back(EncodePackBits(samples));
        }
    }
    else
    {
        return;
    }
    BYTE header[kHeaderSize] = {};
    PutNumber(header, static_cast<std::uint32_t>(segments.size()));
    std::uint64_t total = kHeaderSize;
    for (std::size_t i = 0; i < segments.size(); ++i)
    {
        PutNumber(header + 4 + 4 * i, static_cast<std::uint32_t>(total));
        total += segments[i].size();
    }
    if (total > static_cast<std::uint64_t>(INT_MAX))
    {
        throw CMemoryException();
    }
    CByteArray encoded;
    encoded.Reserve(static_cast<int>(total));
    encoded.AppendRaw(header, static_cast<int>(kHeaderSize));
    for (const std::vector<BYTE>& segment : segments)
    {
        encoded.AppendRaw(segment.data(), static_cast<int>(segment.size()));
    }
    data.Swap(encoded);
}

} // namespace Varnotix
