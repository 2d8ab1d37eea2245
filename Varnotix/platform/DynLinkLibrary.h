/// Makes the library's run-time classes known to the host.
#pragma once

#include "Varnotix/platform/Object.h"

/// Adds the library's run-time classes to the host's chain, so that CRuntimeClass::FromName finds them, as long as an
/// object of this class exists.
class VARNOTIX_EXPORT CDynLinkLibrary : public CObject
{
    DECLARE_DYNAMIC(CDynLinkLibrary)
    CDynLinkLibrary();
    ~CDynLinkLibrary() override;
    CDynLinkLibrary(const CDynLinkLibrary&) = delete;
    CDynLinkLibrary& operator=(const CDynLinkLibrary&) = delete;
};
