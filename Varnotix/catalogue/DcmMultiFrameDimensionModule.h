#pragma once

#include "Varnotix/catalogue/DcmDimensionIndexSequence.h"
#include "Varnotix/catalogue/DcmDimensionOrgSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Multi-frame Dimension Module (PS3.3 C.7.6.17): the dimensions along which frames lie.
class VARNOTIX_EXPORT CDcmMultiFrameDimensionModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmMultiFrameDimensionModule)
    DCM_SEQUENCE(DimensionOrganization, CDcmDimensionOrgSequence, "0020", "9221")
    DCM_SEQUENCE(DimensionIndex, CDcmDimensionIndexSequence,      "0020", "9222")
    // clang-format on
};
