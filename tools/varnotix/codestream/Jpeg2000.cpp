#include "codestream/Jpeg2000.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <openjpeg.h>
#include <string_view>

namespace
{

// A tile costs the library some kilobytes before it is read.
constexpr std::uint64_t kMostTiles = 16384;
constexpr std::uint64_t kTileHeader = 14;
constexpr int kBitsOfWord = 16;

/// The library's view of the bytes.
struct SInput
{
    const BYTE* bytes;
    std::size_t size;
    std::size_t place;
};

OPJ_SIZE_T ReadInput(void* buffer, OPJ_SIZE_T count, void* data)
{
    SInput& input = *static_cast<SInput*>(data);
    const std::size_t taken = std::min<std::size_t>(count, input.size - input.place);
    std::memcpy(buffer, input.bytes + input.place, taken);
    input.place += taken;
    return taken > 0 ? taken : static_cast<OPJ_SIZE_T>(-1);
}

OPJ_BOOL SeekInput(OPJ_OFF_T place, void* data)
{
    SInput& input = *static_cast<SInput*>(data);
    if (place < 0 || static_cast<std::uint64_t>(place) > input.size)
    {
        return OPJ_FALSE;
    }
    input.place = static_cast<std::size_t>(place);
    return OPJ_TRUE;
}

OPJ_OFF_T SkipInput(OPJ_OFF_T count, void* data)
{
    const SInput& input = *static_cast<SInput*>(data);
    return SeekInput(static_cast<OPJ_OFF_T>(input.place) + count, data) == OPJ_TRUE ? count : -1;
}

/// Only the first of the library's messages names a cause.
void TakeMessage(const char* message, void* data)
{
    CString& first = *static_cast<CString*>(data);
    if (first.IsEmpty())
    {
        first = message;
        first.Trim();
    }
}

void IgnoreMessage(const char*, void*) {}

struct SFree
{
    void operator()(opj_codec_t* codec) const { opj_destroy_codec(codec); }
    void operator()(opj_image_t* image) const { opj_image_destroy(image); }
};

std::uint64_t Number(const BYTE* bytes)
{
    return std::uint64_t{bytes[0]} << 24U | std::uint64_t{bytes[1]} << 16U | std::uint64_t{bytes[2]} << 8U | bytes[3];
}

/// The codestream; in a JP2 file, what follows the header of its box.
SInput FindCodestream(const BYTE* bytes, std::size_t size)
{
    constexpr std::string_view kBox = "jp2c";
    constexpr std::string_view kStart = "\xFF\x4F\xFF\x51";
    const std::string_view text(reinterpret_cast<const char*>(bytes), size);
    std::size_t start = 0;
    if (!text.starts_with(kStart))
    {
        const std::size_t box = text.find(kBox);
        start = box == std::string_view::npos ? size : box + kBox.size();
    }
    if (!text.substr(start).starts_with(kStart))
    {
        FailCodestream("it does not begin as a JPEG 2000 codestream does");
    }
    return {bytes + start, size - start, 0};
}

/// What the SIZ segment says, which the library takes memory by (T.800 section A.5.1).
SRasterShape ReadShape(const SInput& input)
{
    constexpr std::size_t kFixed = 42;
    constexpr std::size_t kEach = 3;
    const BYTE* bytes = input.bytes;
    const std::size_t channels = input.size < kFixed ? 0 : std::size_t{bytes[40]} << 8U | bytes[41];
    if (channels == 0 || input.size < kFixed + kEach * channels)
    {
        FailCodestream("its codestream ends early");
    }
    const std::uint64_t right = Number(bytes + 8);
    const std::uint64_t bottom = Number(bytes + 12);
    const std::uint64_t left = Number(bytes + 16);
    const std::uint64_t top = Number(bytes + 20);
    const std::uint64_t tileWidth = std::max<std::uint64_t>(Number(bytes + 24), 1);
    const std::uint64_t tileHeight = std::max<std::uint64_t>(Number(bytes + 28), 1);
    constexpr std::uint64_t kMostSide = 65535;
    if (right <= left || bottom <= top || right - left > kMostSide || bottom - top > kMostSide)
    {
        FailCodestream("the size in its codestream is not one of a frame");
    }
    const std::uint64_t tiles =
        (right / tileWidth + 1 - left / tileWidth) * (bottom / tileHeight + 1 - top / tileHeight);
    if (tiles > kMostTiles || tiles / 4 > input.size / kTileHeader + 1)
    {
        FailCodestream("its codestream has too many tiles for its size");
    }
    int bits = 0;
    for (std::size_t i = 0; i < channels; ++i)
    {
        bits = std::max(bits, (bytes[kFixed + kEach * i] & 0x7F) + 1);
    }
    return {static_cast<int>(right - left), static_cast<int>(bottom - top), static_cast<int>(channels), bits};
}

/// Components may be smaller than the picture.
void TakeComponent(const opj_image_t& image, std::size_t channel, SRaster& raster)
{
    const opj_image_comp_t& component = image.comps[channel];
    if (component.data == nullptr || component.w == 0 || component.h == 0 || component.dx == 0 || component.dy == 0)
    {
        FailCodestream("its codestream lacks a component");
    }
    const auto channels = static_cast<std::size_t>(raster.channels);
    std::uint16_t* sample = raster.samples.data() + channel;
    for (OPJ_UINT32 y = 0; y < static_cast<OPJ_UINT32>(raster.height); ++y)
    {
        const std::size_t row = std::min(y / component.dy, component.h - 1);
        const OPJ_INT32* from = component.data + row * component.w;
        for (OPJ_UINT32 x = 0; x < static_cast<OPJ_UINT32>(raster.width); ++x, sample += channels)
        {
            *sample = static_cast<std::uint16_t>(from[std::min(x / component.dx, component.w - 1)]);
        }
    }
}

using CCodec = std::unique_ptr<opj_codec_t, SFree>;
using CStream = std::unique_ptr<opj_stream_t, decltype(&opj_stream_destroy)>;
using CImage = std::unique_ptr<opj_image_t, SFree>;

CImage Decode(SInput& input)
{
    CString reason;
    const CCodec codec(opj_create_decompress(OPJ_CODEC_J2K));
    const CStream stream(opj_stream_default_create(OPJ_TRUE), &opj_stream_destroy);
    opj_dparameters_t parameters;
    opj_set_default_decoder_parameters(&parameters);
    opj_image_t* made = nullptr;
    if (codec == nullptr || stream == nullptr)
    {
        throw std::bad_alloc();
    }
    opj_set_error_handler(codec.get(), &TakeMessage, &reason);
    opj_set_warning_handler(codec.get(), &IgnoreMessage, nullptr);
    opj_set_info_handler(codec.get(), &IgnoreMessage, nullptr);
    opj_stream_set_user_data(stream.get(), &input, nullptr);
    opj_stream_set_user_data_length(stream.get(), input.size);
    opj_stream_set_read_function(stream.get(), &ReadInput);
    opj_stream_set_skip_function(stream.get(), &SkipInput);
    opj_stream_set_seek_function(stream.get(), &SeekInput);
    bool isDone = opj_setup_decoder(codec.get(), &parameters) == OPJ_TRUE &&
                  opj_read_header(stream.get(), codec.get(), &made) == OPJ_TRUE;
    CImage image(made);
    isDone = isDone && opj_decode(codec.get(), stream.get(), image.get()) == OPJ_TRUE;
    if (!isDone)
    {
        FailCodestream(reason.IsEmpty() ? CString("its codestream is damaged") : reason);
    }
    return image;
}

} // namespace

bool HasJpeg2000()
{
    return true;
}

void DecodeJpeg2000(const BYTE* bytes, std::size_t size, const SRasterShape& shape, SRaster& raster)
{
    SInput input = FindCodestream(bytes, size);
    const SRasterShape found = ReadShape(input);
    SRasterShape wanted = shape;
    wanted.mostBits = std::min(shape.mostBits, kBitsOfWord);
    if (found.width == shape.width && found.height == shape.height)
    {
        CheckShrinkage(found, size);
    }
    ShapeRaster(wanted, found, raster);
    const CImage image = Decode(input);
    if (image->numcomps != static_cast<OPJ_UINT32>(raster.channels))
    {
        FailCodestream("its codestream lacks a component");
    }
    for (std::size_t channel = 0; channel < static_cast<std::size_t>(raster.channels); ++channel)
    {
        TakeComponent(*image, channel, raster);
    }
    raster.isSigned = image->comps[0].sgnd != 0;
}
