// Pictures that the command-line host wrote, read back with the PNG library, or with the system's component on Windows.
#pragma once

#include <string>
#include <vector>

#if defined(VARNOTIX_TEST_PNG)
#include <cstdio>
#include <png.h>
#elif defined(_WIN32)
#include <initguid.h>
#include <wincodec.h>
#include <windows.h>
#endif

struct SReadPicture
{
    unsigned width = 0;
    unsigned height = 0;
    unsigned depth = 0; ///< Bits per channel.
    bool isColour = false;
    std::vector<int> bytes; ///< Gray, or red, green and blue, by pixel.
};

#if defined(VARNOTIX_TEST_PNG)

inline constexpr bool kHasPng = true;

/// An empty picture when the file holds none.
inline SReadPicture ReadPicture(const std::string& name)
{
    SReadPicture picture;
    std::FILE* file = std::fopen(name.c_str(), "rb");
    if (file == nullptr)
    {
        return picture;
    }
    // A damaged picture ends the test program, which is a failed test.
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_init_io(png, file);
    png_read_png(png, info, PNG_TRANSFORM_EXPAND | PNG_TRANSFORM_STRIP_ALPHA, nullptr);
    picture.width = png_get_image_width(png, info);
    picture.height = png_get_image_height(png, info);
    picture.depth = png_get_bit_depth(png, info);
    picture.isColour = png_get_channels(png, info) == 3;
    for (unsigned y = 0; y < picture.height; ++y)
    {
        const png_bytep row = png_get_rows(png, info)[y];
        for (std::size_t i = 0; i < png_get_rowbytes(png, info); i += picture.depth / 8)
        {
            picture.bytes.push_back(picture.depth == 8 ? row[i] : row[i] << 8 | row[i + 1]);
        }
    }
    png_destroy_read_struct(&png, &info, nullptr);
    std::fclose(file);
    return picture;
}

#elif defined(_WIN32)

inline constexpr bool kHasPng = true;

/// An empty picture when the file holds none. What it takes of the component lasts until the test program ends.
inline SReadPicture ReadPicture(const std::string& name)
{
    static const HRESULT kStarted = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    IWICImagingFactory* factory = nullptr;
    IWICBitmapDecoder* decoder = nullptr;
    IWICBitmapFrameDecode* frame = nullptr;
    SReadPicture picture;
    const std::wstring wide(name.begin(), name.end());
    WICPixelFormatGUID format{};
    if (FAILED(kStarted) ||
        FAILED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                reinterpret_cast<void**>(&factory))) ||
        FAILED(factory->CreateDecoderFromFilename(wide.c_str(), nullptr, GENERIC_READ, WICDecodeMetadataCacheOnLoad,
                                                  &decoder)) ||
        FAILED(decoder->GetFrame(0, &frame)) || FAILED(frame->GetSize(&picture.width, &picture.height)) ||
        FAILED(frame->GetPixelFormat(&format)))
    {
        return picture;
    }
    const bool isWide = format == GUID_WICPixelFormat16bppGray || format == GUID_WICPixelFormat48bppRGB;
    picture.isColour = format == GUID_WICPixelFormat24bppBGR || format == GUID_WICPixelFormat48bppRGB;
    picture.depth = isWide ? 16 : 8;
    const unsigned rowSize = picture.width * (picture.isColour ? 3 : 1) * (isWide ? 2 : 1);
    std::vector<unsigned char> bytes(rowSize * picture.height);
    frame->CopyPixels(nullptr, rowSize, static_cast<unsigned>(bytes.size()), bytes.data());
    for (std::size_t i = 0; i < bytes.size(); i += isWide ? 2 : 1)
    {
        const std::size_t place = picture.isColour && !isWide ? i + 2 - 2 * (i % 3) : i; // Blue comes first.
        picture.bytes.push_back(isWide ? bytes[i] | bytes[i + 1] << 8 : bytes[place]);
    }
    frame->Release();
    decoder->Release();
    factory->Release();
    return picture;
}

#else

inline constexpr bool kHasPng = false;

inline SReadPicture ReadPicture(const std::string&)
{
    return {};
}

#endif
