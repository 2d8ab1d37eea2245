#pragma once

#include "Varnotix/catalogue/DcmMaskSubtractionSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Mask Module (PS3.3 C.7.6.10): how frames are subtracted.
class VARNOTIX_EXPORT CDcmMaskModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmMaskModule)
    DCM_TEXT    (RecommendedViewingMode, "0028", "1090")
    DCM_SEQUENCE(MaskSubtraction, CDcmMaskSubtractionSequence, "0028", "6100")
    // clang-format on
};
