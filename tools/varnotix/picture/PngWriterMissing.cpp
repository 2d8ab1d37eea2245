// Replaces PngWriter.cpp in a build without a PNG writer.

#include "picture/PngWriter.h"

bool HasPngWriter()
{
    return false;
}

CString EncodePng(const SPicture&, std::vector<BYTE>&)
{
    return "this build has no PNG writer";
}
