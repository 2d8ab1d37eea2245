#include "codestream/JpegLs.h"

#include <charls/charls.h>

bool HasJpegLs()
{
    return true;
}

void DecodeJpegLs(const BYTE* bytes, std::size_t size, const SRasterShape& shape, SRaster& raster)
{
    try
    {
        // Where the bits of a scan end with the bytes, CharLS 2.4 looks for more of them for seconds; a marker stops
        // it.
        std::vector<BYTE> ended(bytes, bytes + size);
        ended.insert(ended.end(), {0xFF, 0xD9});
        charls::jpegls_decoder decoder;
        decoder.source(ended);
        decoder.read_header();
        const charls::frame_info& frame = decoder.frame_info();
        const SRasterShape found{static_cast<int>(frame.width), static_cast<int>(frame.height), frame.component_count,
                                 frame.bits_per_sample};
        if (found.width == shape.width && found.height == shape.height)
        {
            CheckShrinkage(shape, size);
        }
        ShapeRaster(shape, found, raster);
        const bool isByte = raster.bits <= 8;
        const std::size_t count = raster.samples.size();
        if (decoder.destination_size() != count * (isByte ? 1 : 2))
        {
            FailCodestream("its codestream does not hold a whole picture");
        }
        std::vector<BYTE> narrow(isByte ? count : 0);
        std::vector<std::uint16_t> wide(isByte ? 0 : count);
        if (isByte)
        {
            decoder.decode(narrow.data(), count);
        }
        else
        {
            decoder.decode(wide.data(), 2 * count);
        }
        // Components that are not interleaved come out one after the other.
        const bool isByPlane = raster.channels > 1 && decoder.interleave_mode() == charls::interleave_mode::none;
        const std::size_t channels = isByPlane ? static_cast<std::size_t>(raster.channels) : 1;
        const std::size_t pixels = count / channels;
        for (std::size_t i = 0; i < count; ++i)
        {
            const std::size_t from = i % channels * pixels + i / channels;
            raster.samples[i] = isByte ? narrow[from] : wide[from];
        }
    }
    catch (const charls::jpegls_error& failure)
    {
        FailCodestream(CString(failure.what()));
    }
}
