#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// NM Reconstruction Module (PS3.3 C.8.4.15): how volumes were reconstructed.
class VARNOTIX_EXPORT CDcmNMReconstructionModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmNMReconstructionModule)
    DCM_INITIALIZE_MODULE()
    DCM_TEXT     (SpacingBetweenSlices,   "0018", "0088")
    DCM_TEXT     (ReconstructionDiameter, "0018", "1100")
    DCM_TEXT_LIST(ConvolutionKernel,      "0018", "1210")
    DCM_TEXT     (SliceThickness,         "0018", "0050")
    DCM_TEXT     (SliceLocation,          "0020", "1041")
    // clang-format on
};
