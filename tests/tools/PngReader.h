// Pictures that the command-line host wrote, read back with the PNG library.
#pragma once

#include <string>
#include <vector>

#if defined(VARNOTIX_TEST_PNG)
#include <png.h>
#endif

struct SReadPicture
{
    unsigned width = 0;
    unsigned height = 0;
    bool isColour = false;
    std::vector<int> bytes; ///< Gray, or red, green and blue, by pixel.
};

#if defined(VARNOTIX_TEST_PNG)

inline constexpr bool kHasPng = true;

/// An empty picture when the file holds none.
inline SReadPicture ReadPicture(const std::string& name)
{
    SReadPicture picture;
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, name.c_str()) == 0)
    {
        return picture;
    }
    picture.isColour = (image.format & PNG_FORMAT_FLAG_COLOR) != 0;
    image.format = picture.isColour ? PNG_FORMAT_RGB : PNG_FORMAT_GRAY;
    std::vector<unsigned char> bytes(PNG_IMAGE_SIZE(image));
    if (png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr) != 0)
    {
        picture.width = image.width;
        picture.height = image.height;
        picture.bytes.assign(bytes.begin(), bytes.end());
    }
    return picture;
}

#else

inline constexpr bool kHasPng = false;

inline SReadPicture ReadPicture(const std::string&)
{
    return {};
}

#endif
