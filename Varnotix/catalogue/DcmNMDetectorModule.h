#pragma once

#include "Varnotix/catalogue/DcmDetectorSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// NM Detector Module (PS3.3 C.8.4.11): the detectors of a gamma camera.
class VARNOTIX_EXPORT CDcmNMDetectorModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmNMDetectorModule)
    DCM_INITIALIZE_MODULE()
    DCM_SEQUENCE(DetectorInformation, CDcmDetectorSequence, "0054", "0022")
    // clang-format on
};
