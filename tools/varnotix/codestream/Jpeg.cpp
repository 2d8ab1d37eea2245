#include "codestream/Jpeg.h"

#include "codestream/JpegDecoders.h"

namespace
{

constexpr int kBitsOfByte = 8;
constexpr int kBitsOfExtended = 12;

/// Throws when the codestream has not even one bit for each code that it must have.
void CheckSize(const SJpegFrame& frame, std::size_t size)
{
    constexpr std::uint64_t kBlock = 64;
    const std::uint64_t pixels = frame.shape.Samples() / static_cast<std::uint64_t>(frame.shape.channels);
    const std::uint64_t codes = frame.process == JPEG_LOSSLESS ? frame.shape.Samples() : pixels / kBlock;
    if (codes / 8 > size)
    {
        CString reason;
        reason.Format("%llu bytes are too few for %d rows and %d columns", static_cast<unsigned long long>(size),
                      frame.shape.height, frame.shape.width);
        FailCodestream(reason);
    }
}

} // namespace

void DecodeJpeg(const BYTE* bytes, std::size_t size, const SRasterShape& shape, SRaster& raster)
{
    CJpegStream stream(bytes, size);
    stream.ReadFrame();
    const SJpegFrame& frame = stream.Frame();
    CheckSize(frame, size);
    ShapeRaster(shape, frame.shape, raster);
    raster.hasChrominance = raster.channels == 3 && (stream.NamesChrominance() || frame.IsSubsampled());
    const bool isSequential = frame.process == JPEG_BASELINE || frame.process == JPEG_EXTENDED;
    if (frame.process == JPEG_LOSSLESS)
    {
        DecodeLosslessJpeg(stream, raster);
    }
    else if (HasTurboJpeg() && raster.bits == kBitsOfByte && (isSequential || frame.process == JPEG_PROGRESSIVE))
    {
        DecodeTurboJpeg(bytes, size, raster);
    }
    else if (isSequential && (raster.bits == kBitsOfByte || raster.bits == kBitsOfExtended))
    {
        DecodeSequentialJpeg(stream, raster);
    }
    else
    {
        CString reason;
        reason.Format("its JPEG coding (SOF%d, %d bits) is not supported", frame.process - JPEG_BASELINE, raster.bits);
        FailCodestream(reason);
    }
}
