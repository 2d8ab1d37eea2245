#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// SC Multi-frame Image Module (PS3.3 C.8.6.3): a secondary capture image of several frames.
class VARNOTIX_EXPORT CDcmSCMultiFrameImageModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmSCMultiFrameImageModule)
    DCM_TEXT     (BurnedInAnnotation,                 "0028", "0301")
    DCM_TEXT     (PresentationLUTShape,               "2050", "0020")
    DCM_US       (Illumination,                       "2010", "015E")
    DCM_US       (ReflectedAmbientLight,              "2010", "0160")
    DCM_TEXT     (RescaleIntercept,                   "0028", "1052")
    DCM_TEXT     (RescaleSlope,                       "0028", "1053")
    DCM_TEXT     (RescaleType,                        "0028", "1054")
    DCM_US_LIST  (FrameIncrementPointer,              "0028", "0009")
    DCM_TEXT_LIST(NominalScannedPixelSpacing,         "0018", "2010")
    DCM_TEXT     (DigitizingDeviceTransportDirection, "0018", "2020")
    DCM_TEXT     (RotationOfScannedFilm,              "0018", "2030")
    // clang-format on
};
