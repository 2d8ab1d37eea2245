#pragma once

#include "Varnotix/catalogue/RepeatingGroups.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Curve Referenced Overlay Sequence (PS3.3 C.10.2, retired): an overlay of another object.
class VARNOTIX_EXPORT CReferencedOverLaySequence : public CDcmSequence
{
    // clang-format off
    DCM_REPEATING_SEQUENCE(CReferencedOverLaySequence, Varnotix::kDefaultCurveGroup)
    DCM_DECLARED("0008",    "1150")
    DCM_DECLARED("0008",    "1155")
    DCM_DECLARED(DCM_GROUP, "2610")
    // clang-format on
};
