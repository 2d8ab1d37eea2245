#pragma once

#include "Varnotix/catalogue/DcmGatedSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// NM Multi-gated Acquisition Module (PS3.3 C.8.4.13): how acquisition followed the heart.
class VARNOTIX_EXPORT CDcmNMMultiGatedModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmNMMultiGatedModule)
    DCM_INITIALIZE_MODULE()
    DCM_TEXT    (BeatRejectionFlag, "0018", "1080")
    DCM_TEXT    (PVCRejection,      "0018", "1085")
    DCM_TEXT    (SkipBeats,         "0018", "1086")
    DCM_TEXT    (HeartRate,         "0018", "1088")
    DCM_SEQUENCE(GatedInformation, CDcmGatedSequence, "0054", "0062")
    // clang-format on
};
