#pragma once

#include "Varnotix/platform/Object.h"

/// Joins the library's run-time classes to the host's chain, so that CRuntimeClass::FromName finds them, for as long as
/// an object of this class exists. Several at a time join once; the classes leave the chain with the last one.
class VARNOTIX_EXPORT CDynLinkLibrary : public CObject
{
    DECLARE_DYNAMIC(CDynLinkLibrary)
    CDynLinkLibrary();
    ~CDynLinkLibrary() override;
    CDynLinkLibrary(const CDynLinkLibrary&) = delete;
    CDynLinkLibrary& operator=(const CDynLinkLibrary&) = delete;
};
