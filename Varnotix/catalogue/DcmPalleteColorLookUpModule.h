#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Palette Color Lookup Table Module (PS3.3 C.7.9): the palette of a PALETTE COLOR image.
class VARNOTIX_EXPORT CDcmPalleteColorLookUpModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmPalleteColorLookUpModule)
    DCM_US_LIST           (RedPaletteDescriptor,      "0028", "1101")
    DCM_US_LIST           (GreenPaletteDescriptor,    "0028", "1102")
    DCM_US_LIST           (BluePaletteDescriptor,     "0028", "1103")
    DCM_TEXT              (PaletteUID,                "0028", "1199")
    DCM_US_LIST           (RedPaletteData,            "0028", "1201")
    DCM_US_LIST           (GreenPaletteData,          "0028", "1202")
    DCM_US_LIST_NAMES     (BlueTableData, BluePaletteData, "0028", "1203")
    DCM_US_LIST           (SegmentedRedPaletteData,   "0028", "1221")
    DCM_US_LIST           (SegmentedGreenPaletteData, "0028", "1222")
    DCM_US_LIST           (SegmentedBluePaletteData,  "0028", "1223")
    // clang-format on
};
