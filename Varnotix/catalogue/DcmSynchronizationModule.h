#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Synchronization Module (PS3.3 C.7.4.2): the time frame that devices share.
class VARNOTIX_EXPORT CDcmSynchronizationModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmSynchronizationModule)
    DCM_TEXT   (SynchronizationFrameOfReference, "0020", "0200")
    DCM_TEXT   (SynchronizationTrigger,          "0018", "106A")
    DCM_TEXT   (TriggerSourceOrType,             "0018", "1061")
    DCM_US_LIST(SynchronizationChannel,          "0018", "106C")
    DCM_TEXT   (AcquisitionTimeSynchronized,     "0018", "1800")
    DCM_TEXT   (TimeSource,                      "0018", "1801")
    DCM_TEXT   (TimeDistributionProtocol,        "0018", "1802")
    // clang-format on
};
