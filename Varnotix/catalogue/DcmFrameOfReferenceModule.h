#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Frame of Reference Module (PS3.3 C.7.4.1): the coordinate system of the images.
class VARNOTIX_EXPORT CDcmFrameOfReferenceModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmFrameOfReferenceModule)
    DCM_TEXT     (FrameOfReferenceUID,        "0020", "0052")
    DCM_TEXT_LIST(PositionReferenceIndicator, "0020", "1040")
    // clang-format on
};
