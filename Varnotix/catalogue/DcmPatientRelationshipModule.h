#pragma once

#include "Varnotix/catalogue/DcmSopSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Patient Relationship Module (PS3.3 C.2.1): the patient's visits, studies and other records.
class VARNOTIX_EXPORT CDcmPatientRelationshipModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmPatientRelationshipModule)
    DCM_SEQUENCE(ReferencedVisit, CDcmSopSequence,        "0008", "1125")
    DCM_SEQUENCE(ReferencedStudy, CDcmSopSequence,        "0008", "1110")
    DCM_SEQUENCE(ReferencedPatientAlias, CDcmSopSequence, "0038", "0004")
    // clang-format on
};
