#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Mask Subtraction Sequence (PS3.3 C.7.6.10): one subtraction.
class VARNOTIX_EXPORT CDcmMaskSubtractionSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmMaskSubtractionSequence)
    DCM_TEXT   (MaskOperation,            "0028", "6101")
    DCM_US_LIST(ApplicableFrameRange,     "0028", "6102")
    DCM_US_LIST(MaskFrameNumbers,         "0028", "6110")
    DCM_US     (ContrastFrameAveraging,   "0028", "6112")
    DCM_FL_LIST(MaskSubPixelShift,        "0028", "6114")
    DCM_US     (TIDOffset,                "0028", "6120")
    DCM_TEXT   (MaskOperationExplanation, "0028", "6190")
    // clang-format on
};
