#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Visit Discharge Module (PS3.3 C.3, retired): how the visit ended.
class VARNOTIX_EXPORT CDcmVisitDischargeModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmVisitDischargeModule)
    DCM_DECLARED("0038", "0030")
    DCM_DECLARED("0038", "0032")
    DCM_DECLARED("0038", "0040")
    DCM_DECLARED("0038", "0044")
    // clang-format on
};
