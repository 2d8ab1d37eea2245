#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Respiratory Synchronization Module (PS3.3 C.7.6.18.2): how acquisition followed breathing.
class VARNOTIX_EXPORT CDcmRespiratorySynchronizationModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmRespiratorySynchronizationModule)
    DCM_TEXT(RespiratoryMotionCompensationTechnique, "0018", "9170")
    DCM_TEXT(RespiratorySignalSource,                "0018", "9171")
    // clang-format on
};
