#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Patient's Insurance Plan Code Sequence (PS3.3 C.2.3): the code of a plan.
class VARNOTIX_EXPORT CDcmInsurancePlanSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmInsurancePlanSequence)
    DCM_DECLARED("0008", "0100")
    DCM_DECLARED("0008", "0102")
    DCM_DECLARED("0008", "0103")
    DCM_DECLARED("0008", "0104")
    DCM_DECLARED("0008", "010F")
    DCM_DECLARED("0008", "0105")
    DCM_DECLARED("0008", "0106")
    DCM_DECLARED("0008", "010B")
    DCM_DECLARED("0008", "0107")
    DCM_DECLARED("0008", "010D")
    // clang-format on
};
