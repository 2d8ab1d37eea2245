#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Cardiac Synchronization Module (PS3.3 C.7.6.18.1): how acquisition followed the heart.
class VARNOTIX_EXPORT CDcmCardiacSynchronizationModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmCardiacSynchronizationModule)
    DCM_TEXT(CardiacSynchronizationTechnique, "0018", "9037")
    DCM_TEXT(CardiacSignalSource,             "0018", "9085")
    DCM_FD  (CardiacRRIntervalSpecified,      "0018", "9070")
    DCM_TEXT(CardiacBeatRejectionTechnique,   "0018", "9169")
    DCM_TEXT(LowRRValue,                      "0018", "1081")
    DCM_TEXT(HighRRValue,                     "0018", "1082")
    DCM_TEXT(IntervalsAcquired,               "0018", "1083")
    DCM_TEXT(IntervalsRejected,               "0018", "1084")
    // clang-format on
};
