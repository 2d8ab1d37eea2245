#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// CT Image Module (PS3.3 C.8.2.1): a computed tomography image.
class VARNOTIX_EXPORT CDcmCTImageModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmCTImageModule)
    DCM_INITIALIZE_MODULE()
    DCM_TEXT_LIST(ImageType,                  "0008", "0008")
    DCM_US       (SamplesperPixel,            "0028", "0002")
    DCM_TEXT     (PhotoMetricInterpretation,  "0028", "0004")
    DCM_US       (BitsAllocated,              "0028", "0100")
    DCM_US       (BitsStored,                 "0028", "0101")
    DCM_US       (HighBit,                    "0028", "0102")
    DCM_TEXT     (RescaleIntercept,           "0028", "1052")
    DCM_TEXT     (RescaleSlope,               "0028", "1053")
    DCM_TEXT     (KVP,                        "0018", "0060")
    DCM_TEXT     (AcquisitionNumber,          "0020", "0012")
    DCM_TEXT_LIST(ScanOptions,                "0018", "0022")
    DCM_TEXT     (DataCollectionDiameter,     "0018", "0090")
    DCM_TEXT     (ReconstructionDiameter,     "0018", "1100")
    DCM_TEXT     (DistanceSourceToDetector,   "0018", "1110")
    DCM_TEXT     (DistanceSourceToPatient,    "0018", "1111")
    DCM_TEXT     (GantryDetectorTilt,         "0018", "1120")
    DCM_TEXT     (TableHeight,                "0018", "1130")
    DCM_TEXT     (RotationDirection,          "0018", "1140")
    DCM_TEXT     (ExposureTime,               "0018", "1150")
    DCM_TEXT     (XrayTubeCurrent,            "0018", "1151")
    DCM_TEXT     (Exposure,                   "0018", "1152")
    DCM_TEXT     (ExposureMicroAmpereSeconds, "0018", "1153")
    DCM_TEXT     (FilterType,                 "0018", "1160")
    DCM_TEXT     (GeneratorPower,             "0018", "1170")
    DCM_TEXT_LIST(FocalSpot,                  "0018", "1190")
    DCM_TEXT_LIST(ConvolutionKernel,          "0018", "1210")
    // clang-format on
};
