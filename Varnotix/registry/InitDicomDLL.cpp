#include "Varnotix/registry/InitDicomDLL.h"

#include "Varnotix/platform/DynLinkLibrary.h"

void InitDicomDLL()
{
    static CDynLinkLibrary library;
}
