#include "picture/PngWriter.h"

#include <csetjmp>
#include <png.h>

namespace
{

/// The state of a run that a failure leaves by a jump.
struct SEncoder
{
    std::vector<BYTE>* file;
    bool isOutOfMemory;
    const char* reason;
};

void Fail(png_structp png, const char* reason)
{
    static_cast<SEncoder*>(png_get_error_ptr(png))->reason = reason;
    png_longjmp(png, 1);
}

void IgnoreWarning(png_structp, const char*) {}

void Append(png_structp png, png_bytep bytes, png_size_t size)
{
    SEncoder& encoder = *static_cast<SEncoder*>(png_get_io_ptr(png));
    try
    {
        encoder.file->insert(encoder.file->end(), bytes, bytes + size);
        return;
    }
    catch (const std::bad_alloc&)
    {
        encoder.isOutOfMemory = true;
    }
    png_error(png, "out of memory");
}

void Flush(png_structp) {}

/// Objects with destructors have no place here: a failure jumps out.
bool Encode(png_structp png, png_infop info, const SPicture& picture, SEncoder& encoder, BYTE* row)
{
    const auto rowSize = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.channels);
    if (setjmp(png_jmpbuf(png)) != 0)
    {
        return false;
    }
    png_set_write_fn(png, &encoder, &Append, &Flush);
    png_set_IHDR(png, info, static_cast<png_uint_32>(picture.width), static_cast<png_uint_32>(picture.height),
                 picture.highest == 255 ? 8 : 16, picture.channels == 1 ? PNG_COLOR_TYPE_GRAY : PNG_COLOR_TYPE_RGB,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    const std::uint16_t* value = picture.values.data();
    for (int y = 0; y < picture.height; ++y)
    {
        BYTE* to = row;
        for (std::size_t i = 0; i < rowSize; ++i, ++value)
        {
            if (picture.highest > 255)
            {
                *to++ = static_cast<BYTE>(*value >> 8U);
            }
            *to++ = static_cast<BYTE>(*value);
        }
        png_write_row(png, row);
    }
    png_write_end(png, nullptr);
    return true;
}

} // namespace

bool HasPngWriter()
{
    return true;
}

CString EncodePng(const SPicture& picture, std::vector<BYTE>& file)
{
    file.clear();
    SEncoder encoder{&file, false, ""};
    std::vector<BYTE> row(2 * static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.channels));
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, &encoder, &Fail, &IgnoreWarning);
    png_infop info = png != nullptr ? png_create_info_struct(png) : nullptr;
    const bool isDone = info != nullptr && Encode(png, info, picture, encoder, row.data());
    const bool isOutOfMemory = info == nullptr || encoder.isOutOfMemory;
    const CString reason(encoder.reason);
    png_destroy_write_struct(&png, &info);
    if (isOutOfMemory)
    {
        throw std::bad_alloc();
    }
    return isDone ? CString() : reason;
}
