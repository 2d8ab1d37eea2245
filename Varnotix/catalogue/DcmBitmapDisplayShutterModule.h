#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Bitmap Display Shutter Module (PS3.3 C.7.6.15): an overlay that masks the image.
class VARNOTIX_EXPORT CDcmBitmapDisplayShutterModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmBitmapDisplayShutterModule)
    DCM_TEXT_LIST(ShutterShape,             "0018", "1600")
    DCM_US       (ShutterOverlayGroup,      "0018", "1623")
    DCM_US       (ShutterPresentationValue, "0018", "1622")
    // clang-format on
};
