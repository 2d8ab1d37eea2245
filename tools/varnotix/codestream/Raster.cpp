#include "codestream/Raster.h"

void FailCodestream(const CString& reason)
{
    throw CCodestreamFault(std::string(reason.View()));
}

void ShapeRaster(const SRasterShape& wanted, const SRasterShape& found, SRaster& raster)
{
    CString reason;
    if (found.width != wanted.width || found.height != wanted.height)
    {
        reason.Format("its codestream has %d columns and %d rows, the object %d and %d", found.width, found.height,
                      wanted.width, wanted.height);
        FailCodestream(reason);
    }
    if (found.channels != wanted.channels)
    {
        reason.Format("its codestream has %d samples per pixel, the object %d", found.channels, wanted.channels);
        FailCodestream(reason);
    }
    if (found.mostBits < 1 || found.mostBits > wanted.mostBits)
    {
        reason.Format("its codestream has samples of %d bits, the object room for %d", found.mostBits, wanted.mostBits);
        FailCodestream(reason);
    }
    raster.width = found.width;
    raster.height = found.height;
    raster.channels = found.channels;
    raster.bits = found.mostBits;
    raster.samples.assign(static_cast<std::size_t>(found.Samples()), 0);
}

void CheckShrinkage(const SRasterShape& shape, std::size_t bytes)
{
    // An empty picture shrinks to almost nothing, so a picture of ordinary size is always tried.
    constexpr std::uint64_t kOrdinarySamples = std::uint64_t{16} << 20U;
    constexpr std::uint64_t kMostShrinkage = 512;
    if (shape.Samples() > kOrdinarySamples && shape.Samples() / kMostShrinkage > bytes)
    {
        CString reason;
        reason.Format("%llu bytes are too few for %d rows and %d columns", static_cast<unsigned long long>(bytes),
                      shape.height, shape.width);
        FailCodestream(reason);
    }
}
