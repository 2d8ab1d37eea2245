#pragma once

#include "Varnotix/catalogue/DcmTimeSlotSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Data Information Sequence (PS3.3 C.8.4.13): one range of heart intervals.
class VARNOTIX_EXPORT CDcmDataSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmDataSequence)
    DCM_INITIALIZE_SEQUENCE()
    DCM_TEXT    (FrameTime,         "0018", "1063")
    DCM_TEXT    (NominalInterval,   "0018", "1062")
    DCM_TEXT    (LowRRValue,        "0018", "1081")
    DCM_TEXT    (HighRRValue,       "0018", "1082")
    DCM_TEXT    (IntervalsAcquired, "0018", "1083")
    DCM_TEXT    (IntervalsRejected, "0018", "1084")
    DCM_SEQUENCE(TimeSlot, CDcmTimeSlotSequence, "0054", "0072")
    // clang-format on
};
