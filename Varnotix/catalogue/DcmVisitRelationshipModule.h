#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Visit Relationship Module (PS3.3 C.3.1): the studies and the patient of the visit.
class VARNOTIX_EXPORT CDcmVisitRelationshipModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmVisitRelationshipModule)
    DCM_DECLARED("0008", "1110")
    DCM_DECLARED("0008", "1120")
    // clang-format on
};
