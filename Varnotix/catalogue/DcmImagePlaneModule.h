#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Image Plane Module (PS3.3 C.7.6.2): where the image lies in the patient.
class VARNOTIX_EXPORT CDcmImagePlaneModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmImagePlaneModule)
    DCM_TEXT_LIST(PixelSpacing,            "0028", "0030")
    DCM_TEXT_LIST(ImageOrientationPatient, "0020", "0037")
    DCM_TEXT_LIST(ImagePositionPatient,    "0020", "0032")
    DCM_TEXT     (SliceThickness,          "0018", "0050")
    DCM_TEXT     (SliceLocation,           "0020", "1041")
    // clang-format on
};
