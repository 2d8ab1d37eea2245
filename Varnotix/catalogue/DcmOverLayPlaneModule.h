#pragma once

#include "Varnotix/catalogue/RepeatingGroups.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Overlay Plane Module (PS3.3 C.9.2): a bitmap over the image, in one instance of group 60xx.
class VARNOTIX_EXPORT CDcmOverLayPlaneModule : public CDcmModule
{
    // clang-format off
    DCM_REPEATING_MODULE(CDcmOverLayPlaneModule, Varnotix::kDefaultOverlayGroup)
    DCM_US     (OverlayRows,          DCM_GROUP, "0010")
    DCM_US     (OverlayColumns,       DCM_GROUP, "0011")
    DCM_TEXT   (OverlayType,          DCM_GROUP, "0040")
    DCM_US_LIST(OverlayOrigin,        DCM_GROUP, "0050")
    DCM_US     (OverlayBitsAllocated, DCM_GROUP, "0100")
    DCM_US     (OverlayBitPosition,   DCM_GROUP, "0102")
    DCM_BYTES  (OverlayData,          DCM_GROUP, "3000")
    DCM_TEXT   (OverlayDescription,   DCM_GROUP, "0022")
    DCM_TEXT   (OverlaySubtype,       DCM_GROUP, "0045")
    DCM_TEXT   (OverlayLabel,         DCM_GROUP, "1500")
    DCM_TEXT   (ROIArea,              DCM_GROUP, "1301")
    DCM_TEXT   (ROIMean,              DCM_GROUP, "1302")
    DCM_TEXT   (ROIStandardDeviation, DCM_GROUP, "1303")
    // clang-format on
};
