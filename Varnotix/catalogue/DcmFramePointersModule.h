#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Frame Pointers Module (PS3.3 C.7.6.9): frames of interest.
class VARNOTIX_EXPORT CDcmFramePointersModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmFramePointersModule)
    DCM_US       (RepresentativeFrameNumber,  "0028", "6010")
    DCM_US_LIST  (FrameNumbersOfInterest,     "0028", "6020")
    DCM_TEXT_LIST(FrameOfInterestDescription, "0028", "6022")
    // clang-format on
};
