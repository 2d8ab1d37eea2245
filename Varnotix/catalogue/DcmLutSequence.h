#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Modality LUT Sequence and of the VOI LUT Sequence (PS3.3 C.11.1, C.11.2): one lookup table.
class VARNOTIX_EXPORT CDcmLutSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmLutSequence)
    DCM_US_LIST(LUTDescriptor,   "0028", "3002")
    DCM_TEXT   (LUTExplanation,  "0028", "3003")
    DCM_TEXT   (ModalityLUTType, "0028", "3004")
    DCM_US_LIST(LUTData,         "0028", "3006")
    // clang-format on
};
