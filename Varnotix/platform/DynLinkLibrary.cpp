#include "Varnotix/platform/DynLinkLibrary.h"

#include "Varnotix/platform/ClassChain.h"

IMPLEMENT_DYNAMIC(CDynLinkLibrary, CObject)

CDynLinkLibrary::CDynLinkLibrary()
{
    Varnotix::JoinLibraryClasses();
}

CDynLinkLibrary::~CDynLinkLibrary()
{
    Varnotix::LeaveLibraryClasses();
}
