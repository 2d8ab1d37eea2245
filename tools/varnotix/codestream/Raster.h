/// What the decoders of compressed frames make of them.
#pragma once

#include "Varnotix/Varnotix.h"

#include <cstdint>
#include <stdexcept>
#include <vector>

/// A codestream cannot be decoded; the text gives the reason.
class CCodestreamFault : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A decoded frame.
struct SRaster
{
    int width = 0;
    int height = 0;
    int channels = 0;
    int bits = 0;                       ///< Of a sample: 1 to 16.
    bool isSigned = false;              ///< The codestream has signed samples; only JPEG 2000 says so.
    bool hasChrominance = false;        ///< The codestream itself says that its colours are YCbCr; only JPEG does.
    std::vector<std::uint16_t> samples; ///< Channels together, by pixel; two's complement where they are signed.
};

/// What a frame must be to fit its object. The codestream says the same of itself; one that differs is refused before
/// memory is taken by its numbers.
struct SRasterShape
{
    int width = 0;
    int height = 0;
    int channels = 0;
    int mostBits = 0; ///< A sample of more bits has no room in the object's.

    std::uint64_t Samples() const
    {
        return static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height) *
               static_cast<std::uint64_t>(channels);
    }
};

/// Throws CCodestreamFault.
[[noreturn]] void FailCodestream(const CString& reason);

/// Gives the raster the shape, bits and zero samples. Throws CCodestreamFault when what the codestream says of itself
/// differs from the shape.
void ShapeRaster(const SRasterShape& wanted, const SRasterShape& found, SRaster& raster);

/// Throws CCodestreamFault when so few bytes cannot hold so many samples, though the coding as such has no limit.
void CheckShrinkage(const SRasterShape& shape, std::size_t bytes);
