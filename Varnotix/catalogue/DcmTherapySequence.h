#pragma once

#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Intervention Sequence (PS3.3 C.7.6.13): one intervention.
class VARNOTIX_EXPORT CDcmTherapySequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmTherapySequence)
    DCM_TEXT    (InterventionalStatus,      "0018", "0038")
    DCM_TEXT    (InterventionDrugStartTime, "0018", "0035")
    DCM_TEXT    (InterventionDrugStopTime,  "0018", "0027")
    DCM_TEXT    (TherapyDescription,        "0018", "0039")
    DCM_INCLUDE (Code, CDcmCodeSequenceMacroEx)
    DCM_SEQUENCE(InterventionalDrug, CDcmCodeSequenceMacroEx,  "0018", "0029")
    DCM_SEQUENCE(AdministrationRoute, CDcmCodeSequenceMacroEx, "0054", "0302")
    // clang-format on
};
