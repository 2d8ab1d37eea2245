#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Cine Module (PS3.3 C.7.6.5): how a multi-frame image is played.
class VARNOTIX_EXPORT CDcmCineModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmCineModule)
    DCM_US       (PreferredPlaybackSequencing, "0018", "1244")
    DCM_TEXT     (FrameTime,                   "0018", "1063")
    DCM_TEXT_LIST(FrameTimeVector,             "0018", "1065")
    DCM_TEXT     (StartTrim,                   "0008", "2142")
    DCM_TEXT     (StopTrim,                    "0008", "2143")
    DCM_TEXT     (RecommendedDisplayFrameRate, "0008", "2144")
    DCM_TEXT     (CineRate,                    "0018", "0040")
    DCM_TEXT     (FrameDelay,                  "0018", "1066")
    DCM_TEXT     (ImageTriggerDelay,           "0018", "1067")
    DCM_TEXT     (EffectiveDuration,           "0018", "0072")
    DCM_TEXT     (ActualFrameDuration,         "0018", "1242")
    // clang-format on
};
