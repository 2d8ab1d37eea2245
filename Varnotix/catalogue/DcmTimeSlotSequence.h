#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Time Slot Information Sequence (PS3.3 C.8.4.13): one slot of the heart cycle.
class VARNOTIX_EXPORT CDcmTimeSlotSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmTimeSlotSequence)
    DCM_INITIALIZE_SEQUENCE()
    DCM_TEXT_SETTER(TimeSlotTime, "0054", "0073")
    DCM_TEXT       (FrameTime,    "0018", "1063")
    // clang-format on
};
