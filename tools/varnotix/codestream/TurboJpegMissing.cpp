// Replaces TurboJpeg.cpp in a build without libjpeg-turbo.

#include "codestream/JpegDecoders.h"

bool HasTurboJpeg()
{
    return false;
}

void DecodeTurboJpeg(const BYTE*, std::size_t, SRaster&)
{
    FailCodestream("this build has no libjpeg-turbo");
}
