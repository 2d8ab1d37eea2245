#pragma once

#include "Varnotix/catalogue/DcmDataSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Gated Information Sequence (PS3.3 C.8.4.13): one gating signal.
class VARNOTIX_EXPORT CDcmGatedSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmGatedSequence)
    DCM_INITIALIZE_SEQUENCE()
    DCM_TEXT    (TriggerTime, "0018", "1060")
    DCM_TEXT    (FramingType, "0018", "1064")
    DCM_SEQUENCE(DataInformation, CDcmDataSequence, "0054", "0063")
    // clang-format on
};
