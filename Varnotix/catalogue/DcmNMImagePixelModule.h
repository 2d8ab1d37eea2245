#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// NM Image Pixel Module (PS3.3 C.8.4.7): the pixel description of a nuclear medicine image.
class VARNOTIX_EXPORT CDcmNMImagePixelModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmNMImagePixelModule)
    DCM_INITIALIZE_MODULE()
    DCM_US       (SamplesperPixel,           "0028", "0002")
    DCM_TEXT     (PhotoMetricInterpretation, "0028", "0004")
    DCM_US       (BitsAllocated,             "0028", "0100")
    DCM_US       (BitsStored,                "0028", "0101")
    DCM_US       (HighBit,                   "0028", "0102")
    DCM_TEXT_LIST(PixelSpacing,              "0028", "0030")
    // clang-format on
};
