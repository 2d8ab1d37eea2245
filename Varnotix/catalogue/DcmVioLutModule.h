#pragma once

#include "Varnotix/catalogue/DcmLutSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// VOI LUT Module (PS3.3 C.11.2): from modality values to the values that are shown.
class VARNOTIX_EXPORT CDcmVioLutModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmVioLutModule)
    DCM_TEXT_LIST(WindowCenter,                    "0028", "1050")
    DCM_TEXT_LIST(WindowWidth,                     "0028", "1051")
    DCM_TEXT_LIST(WindowCenterAndWidthExplanation, "0028", "1055")
    DCM_SEQUENCE (VoiLut, CDcmLutSequence, "0028", "3010")
    // clang-format on
};
