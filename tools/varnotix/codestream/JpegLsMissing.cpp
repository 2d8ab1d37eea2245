// Replaces JpegLs.cpp in a build without CharLS.

#include "codestream/JpegLs.h"

bool HasJpegLs()
{
    return false;
}

void DecodeJpegLs(const BYTE*, std::size_t, const SRasterShape&, SRaster&)
{
    FailCodestream("this build has no JPEG-LS decoder");
}
