// The decoder of libjpeg-turbo, through its libjpeg interface: the other one converts colours as it likes.

#include "codestream/JpegDecoders.h"

#include <csetjmp>
#include <cstdio>
#include <cstring>
#include <jerror.h>
#include <jpeglib.h>

namespace
{

// A progressive codestream may have scans without end, each of which costs the time of a whole picture.
constexpr int kMostScans = 200;

struct SDecoder
{
    jpeg_decompress_struct info;
    jpeg_error_mgr errors;
    jpeg_progress_mgr progress;
    std::jmp_buf failure;
    char reason[JMSG_LENGTH_MAX];
};

[[noreturn]] void Fail(j_common_ptr info, const char* reason)
{
    SDecoder& decoder = *static_cast<SDecoder*>(info->client_data);
    std::snprintf(decoder.reason, sizeof(decoder.reason), "%s", reason);
    std::longjmp(decoder.failure, 1);
}

void FailWithMessage(j_common_ptr info)
{
    char reason[JMSG_LENGTH_MAX];
    info->err->format_message(info, reason);
    Fail(info, reason);
}

/// The library makes up what is missing in a damaged picture, and only warns.
void TakeMessage(j_common_ptr info, int level)
{
    const int code = info->err->msg_code;
    const bool isDamage =
        code == JWRN_HIT_MARKER || code == JWRN_HUFF_BAD_CODE || code == JWRN_JPEG_EOF || code == JWRN_MUST_RESYNC;
    if (level < 0 && isDamage)
    {
        FailWithMessage(info);
    }
}

void CheckProgress(j_common_ptr info)
{
    if (reinterpret_cast<j_decompress_ptr>(info)->input_scan_number > kMostScans)
    {
        Fail(info, "its codestream has too many scans");
    }
}

/// Objects with destructors have no place here: a failure jumps out.
bool Decode(SDecoder& decoder, const BYTE* bytes, unsigned long size, const SRaster& raster, JSAMPLE* row,
            std::uint16_t* samples)
{
    jpeg_decompress_struct& info = decoder.info;
    info.err = jpeg_std_error(&decoder.errors);
    decoder.errors.error_exit = &FailWithMessage;
    decoder.errors.emit_message = &TakeMessage;
    decoder.progress.progress_monitor = &CheckProgress;
    info.client_data = &decoder;
    if (setjmp(decoder.failure) != 0)
    {
        return false;
    }
    jpeg_create_decompress(&info);
    info.client_data = &decoder;
    info.progress = &decoder.progress;
    jpeg_mem_src(&info, bytes, size);
    jpeg_read_header(&info, TRUE);
    if (info.image_width != static_cast<JDIMENSION>(raster.width) ||
        info.image_height != static_cast<JDIMENSION>(raster.height) || info.num_components != raster.channels)
    {
        Fail(reinterpret_cast<j_common_ptr>(&info), "its codestream has two frame headers");
    }
    // Equal colour spaces: nothing is converted, whatever the library takes the colours for.
    info.jpeg_color_space = raster.channels == 3 ? JCS_YCbCr : JCS_GRAYSCALE;
    info.out_color_space = info.jpeg_color_space;
    jpeg_start_decompress(&info);
    const std::size_t rowSize = static_cast<std::size_t>(raster.width) * static_cast<std::size_t>(raster.channels);
    std::uint16_t* to = samples;
    while (info.output_scanline < info.output_height)
    {
        jpeg_read_scanlines(&info, &row, 1);
        for (std::size_t i = 0; i < rowSize; ++i)
        {
            *to++ = row[i];
        }
    }
    jpeg_finish_decompress(&info);
    return true;
}

} // namespace

bool HasTurboJpeg()
{
    return true;
}

void DecodeTurboJpeg(const BYTE* bytes, std::size_t size, SRaster& raster)
{
    if (raster.channels != 1 && raster.channels != 3)
    {
        FailCodestream("its number of samples per pixel is not supported");
    }
    std::vector<JSAMPLE> row(static_cast<std::size_t>(raster.width) * static_cast<std::size_t>(raster.channels));
    SDecoder decoder;
    std::memset(&decoder.info, 0, sizeof(decoder.info));
    std::memset(&decoder.progress, 0, sizeof(decoder.progress));
    const bool isDone =
        Decode(decoder, bytes, static_cast<unsigned long>(size), raster, row.data(), raster.samples.data());
    jpeg_destroy_decompress(&decoder.info);
    if (!isDone)
    {
        FailCodestream(decoder.reason);
    }
}
