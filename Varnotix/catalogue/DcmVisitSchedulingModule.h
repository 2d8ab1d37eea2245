#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Visit Scheduling Module (PS3.3 C.3, retired): when the visit was to take place.
class VARNOTIX_EXPORT CDcmVisitSchedulingModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmVisitSchedulingModule)
    DCM_DECLARED("0038", "001A")
    DCM_DECLARED("0038", "001B")
    DCM_DECLARED("0038", "001C")
    DCM_DECLARED("0038", "001D")
    DCM_DECLARED("0038", "001E")
    // clang-format on
};
