// Replaces PngWriter.cpp in a build without the PNG library.

#include "picture/PngWriter.h"

bool HasPngWriter()
{
    return false;
}

CString EncodePng(const SPicture&, std::vector<BYTE>&)
{
    return "this build has no PNG writer";
}
