#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// US Frame of Reference Module (PS3.3 C.8.5.4, retired): the coordinates of an ultrasound region.
class VARNOTIX_EXPORT CDcmUSFrameOfReferenceModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmUSFrameOfReferenceModule)
    DCM_UL(RegionLocationMinX0,          "0018", "6018")
    DCM_UL(RegionLocationMinY0,          "0018", "601A")
    DCM_UL(RegionLocationMaxX1,          "0018", "601C")
    DCM_UL(RegionLocationMaxY1,          "0018", "601E")
    DCM_US(PhysicalUnitsXDirection,      "0018", "6024")
    DCM_US(PhysicalUnitsYDirection,      "0018", "6026")
    DCM_FD(PhysicalDeltaX,               "0018", "602C")
    DCM_FD(PhysicalDeltaY,               "0018", "602E")
    DCM_UL(ReferencePixelX0,             "0018", "6020")
    DCM_UL(ReferencePixelY0,             "0018", "6022")
    DCM_FD(ReferencePixelPhysicalValueX, "0018", "6028")
    DCM_FD(ReferencePixelPhysicalValueY, "0018", "602A")
    // clang-format on
};
