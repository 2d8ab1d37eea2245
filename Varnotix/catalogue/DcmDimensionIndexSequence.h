#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Dimension Index Sequence (PS3.3 C.7.6.17): the attribute that is one dimension.
class VARNOTIX_EXPORT CDcmDimensionIndexSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmDimensionIndexSequence)
    DCM_UL  (DimensionIndexPointer,         "0020", "9165")
    DCM_TEXT(DimensionIndexPrivateCreator,  "0020", "9213")
    DCM_UL  (FunctionalGroupPointer,        "0020", "9167")
    DCM_TEXT(FunctionalGroupPrivateCreator, "0020", "9238")
    DCM_TEXT(DimensionOrganizationUID,      "0020", "9164")
    // clang-format on
};
