#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// SC Image Module (PS3.3 C.8.6.2): when the image was captured.
class VARNOTIX_EXPORT CDcmSCImageModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmSCImageModule)
    DCM_TEXT(DateOfSecondaryCapture, "0018", "1012")
    DCM_TEXT(TimeOfSecondaryCapture, "0018", "1014")
    // clang-format on
};
