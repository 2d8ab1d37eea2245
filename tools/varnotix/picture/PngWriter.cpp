#include "picture/PngWriter.h"

#include <png.h>

bool HasPngWriter()
{
    return true;
}

CString EncodePng(const SPicture& picture, std::vector<BYTE>& file)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width);
    image.height = static_cast<png_uint_32>(picture.height);
    image.format = picture.channels == 1 ? PNG_FORMAT_GRAY : PNG_FORMAT_RGB;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    file.resize(size);
    if (png_image_write_to_memory(&image, file.data(), &size, 0, picture.bytes.data(), 0, nullptr) == 0)
    {
        return CString(image.message);
    }
    file.resize(size);
    return CString();
}
