#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Intervention Drug Information Sequence (PS3.3 C.8.4.10): one drug.
class VARNOTIX_EXPORT CDcmInterventionDrugSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmInterventionDrugSequence)
    DCM_DECLARED("0018", "0034")
    DCM_DECLARED("0018", "0029")
    DCM_DECLARED("0054", "0302")
    DCM_DECLARED("0018", "0035")
    DCM_DECLARED("0018", "0027")
    DCM_DECLARED("0018", "0028")
    // clang-format on
};
