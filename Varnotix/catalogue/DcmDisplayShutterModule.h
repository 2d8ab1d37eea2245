#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Display Shutter Module (PS3.3 C.7.6.11): a geometric shape that masks the image.
class VARNOTIX_EXPORT CDcmDisplayShutterModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmDisplayShutterModule)
    DCM_TEXT_LIST(ShutterShape,               "0018", "1600")
    DCM_TEXT     (ShutterLeftVerticalEdge,    "0018", "1602")
    DCM_TEXT     (ShutterRightVerticalEdge,   "0018", "1604")
    DCM_TEXT     (ShutterUpperHorizontalEdge, "0018", "1606")
    DCM_TEXT     (ShutterLowerHorizontalEdge, "0018", "1608")
    DCM_TEXT_LIST(CenterOfCircularShutter,    "0018", "1610")
    DCM_TEXT     (RadiusOfCircularShutter,    "0018", "1612")
    DCM_TEXT_LIST(VerticesOfPolygonalShutter, "0018", "1620")
    DCM_US       (ShutterPresentationValue,   "0018", "1622")
    // clang-format on
};
