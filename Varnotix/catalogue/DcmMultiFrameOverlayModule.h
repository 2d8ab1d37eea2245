#pragma once

#include "Varnotix/catalogue/RepeatingGroups.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Multi-frame Overlay Module (PS3.3 C.9.3): the frames of an overlay, in one instance of group 60xx.
class VARNOTIX_EXPORT CDcmMultiFrameOverlayModule : public CDcmModule
{
    // clang-format off
    DCM_REPEATING_MODULE(CDcmMultiFrameOverlayModule, Varnotix::kDefaultOverlayGroup)
    DCM_TEXT(NumberFramesOverlay, DCM_GROUP, "0015")
    DCM_US  (ImageFrameOrigin,    DCM_GROUP, "0051")
    // clang-format on
};
