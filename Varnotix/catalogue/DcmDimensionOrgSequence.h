#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Dimension Organization Sequence (PS3.3 C.7.6.17): one set of dimensions.
class VARNOTIX_EXPORT CDcmDimensionOrgSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmDimensionOrgSequence)
    DCM_TEXT(DimensionOrganizationUID, "0020", "9164")
    // clang-format on
};
