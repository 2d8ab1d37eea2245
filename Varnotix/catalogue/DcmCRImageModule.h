#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// CR Image Module (PS3.3 C.8.1.2): a computed radiography image.
class VARNOTIX_EXPORT CDcmCRImageModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmCRImageModule)
    DCM_INITIALIZE_MODULE()
    DCM_TEXT     (PhotometricInterpretation,       "0028", "0004")
    DCM_TEXT     (KVP,                             "0018", "0060")
    DCM_TEXT     (PlateID,                         "0018", "1004")
    DCM_TEXT     (DistanceSourceDetector,          "0018", "1110")
    DCM_TEXT     (DistanceSourcePatient,           "0018", "1111")
    DCM_TEXT     (ExposureTime,                    "0018", "1150")
    DCM_TEXT     (XRayTubeCurrent,                 "0018", "1151")
    DCM_TEXT     (Exposure,                        "0018", "1152")
    DCM_TEXT     (ExposureMicroAmpereSeconds,      "0018", "1153")
    DCM_TEXT_LIST(ImagerPixelSpacing,              "0018", "1164")
    DCM_TEXT     (GeneratorPower,                  "0018", "1170")
    DCM_TEXT     (AcquisitionDeviceProcessing,     "0018", "1400")
    DCM_TEXT     (AcquisitionDeviceProcessingCode, "0018", "1401")
    // clang-format on
};
