#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Phase Information Sequence (PS3.3 C.8.4.14): one phase.
class VARNOTIX_EXPORT CDcmPhaseSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmPhaseSequence)
    DCM_INITIALIZE_SEQUENCE()
    DCM_TEXT     (PhaseDelay,            "0054", "0036")
    DCM_TEXT     (ActualFrameDuration,   "0018", "1242")
    DCM_TEXT     (PauseBetweenFrames,    "0054", "0038")
    DCM_US       (NumberFramesInPhase,   "0054", "0033")
    DCM_TEXT_LIST(TriggerVector,         "0054", "0210")
    DCM_US       (NumberTriggersInPhase, "0054", "0211")
    // clang-format on
};
