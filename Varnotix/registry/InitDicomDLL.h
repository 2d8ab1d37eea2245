/// The start-up call of the library.
#pragma once

#include "Varnotix/platform/Export.h"

/// Joins the library's run-time classes to the host's, so that CRuntimeClass::FromName and dynamic creation by class
/// name find them. A host calls it once before it uses any class; further calls do nothing.
VARNOTIX_EXPORT void InitDicomDLL();
