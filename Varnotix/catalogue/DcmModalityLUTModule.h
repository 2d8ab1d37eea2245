#pragma once

#include "Varnotix/catalogue/DcmLutSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Modality LUT Module (PS3.3 C.11.1): from stored values to modality values.
class VARNOTIX_EXPORT CDcmModalityLUTModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmModalityLUTModule)
    DCM_TEXT    (Intercept,    "0028", "1052")
    DCM_TEXT    (RescaleSlope, "0028", "1053")
    DCM_TEXT    (RescaleType,  "0028", "1054")
    DCM_SEQUENCE(ModalityLUT, CDcmLutSequence, "0028", "3000")
    // clang-format on
};
