// Any bytes as a compressed frame, after four bytes: the decoder, and columns, rows and samples per pixel of the
// object.

#include "Promise.h"
#include "codestream/Jpeg.h"
#include "codestream/Jpeg2000.h"
#include "codestream/JpegLs.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr int kRoom = 16;
    CInput input(data, size);
    const unsigned decoder = input.Take() % 3;
    SRasterShape shape;
    shape.width = static_cast<int>(input.Take());
    shape.height = static_cast<int>(input.Take());
    shape.channels = static_cast<int>(input.Take());
    shape.mostBits = kRoom;
    const CByteArray frame = input.Rest();
    const auto frameSize = static_cast<std::size_t>(frame.GetSize());
    SRaster raster;
    try
    {
        if (decoder == 0)
        {
            DecodeJpeg(frame.GetData(), frameSize, shape, raster);
        }
        else if (decoder == 1)
        {
            DecodeJpegLs(frame.GetData(), frameSize, shape, raster);
        }
        else
        {
            DecodeJpeg2000(frame.GetData(), frameSize, shape, raster);
        }
    }
    catch (const CCodestreamFault&)
    {
        return 0;
    }
    Promise(raster.width == shape.width && raster.height == shape.height && raster.channels == shape.channels &&
                raster.samples.size() == shape.Samples(),
            "a picture has the shape of its object");
    Promise(raster.bits >= 1 && raster.bits <= kRoom, "a sample has room in the object's");
    return 0;
}
