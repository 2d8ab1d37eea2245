#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Multi-frame Module (PS3.3 C.7.6.6): the number of frames and what distinguishes them.
class VARNOTIX_EXPORT CDcmMultiFrameModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmMultiFrameModule)
    DCM_TEXT   (NumberOfFrames,        "0028", "0008")
    DCM_US_LIST(FrameIncrementPointer, "0028", "0009")
    // clang-format on
};
