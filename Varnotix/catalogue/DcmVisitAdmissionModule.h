#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Visit Admission Module (PS3.3 C.3.4): how the patient came to the visit.
class VARNOTIX_EXPORT CDcmVisitAdmissionModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmVisitAdmissionModule)
    DCM_DECLARED("0008", "0090")
    DCM_DECLARED("0008", "0092")
    DCM_DECLARED("0008", "0094")
    DCM_DECLARED("0008", "0096")
    DCM_DECLARED("0008", "1080")
    DCM_DECLARED("0008", "1084")
    DCM_DECLARED("0038", "0016")
    DCM_DECLARED("0038", "0020")
    DCM_DECLARED("0038", "0021")
    // clang-format on
};
