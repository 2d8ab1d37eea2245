// Replaces Jpeg2000.cpp in a build without OpenJPEG.

#include "codestream/Jpeg2000.h"

bool HasJpeg2000()
{
    return false;
}

void DecodeJpeg2000(const BYTE*, std::size_t, const SRasterShape&, SRaster&)
{
    FailCodestream("this build has no JPEG 2000 decoder");
}
