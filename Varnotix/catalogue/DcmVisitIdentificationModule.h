#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Visit Identification Module (PS3.3 C.3.2): where the visit takes place and under which number.
class VARNOTIX_EXPORT CDcmVisitIdentificationModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmVisitIdentificationModule)
    DCM_DECLARED("0008", "0080")
    DCM_DECLARED("0008", "0081")
    DCM_DECLARED("0008", "0082")
    DCM_DECLARED("0038", "0010")
    DCM_DECLARED("0038", "0011")
    DCM_DECLARED("0038", "0014")
    DCM_DECLARED("0038", "0060")
    DCM_DECLARED("0038", "0061")
    DCM_DECLARED("0038", "0062")
    DCM_DECLARED("0038", "0064")
    // clang-format on
};
