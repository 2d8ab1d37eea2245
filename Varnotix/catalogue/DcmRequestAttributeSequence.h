#pragma once

#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Request Attributes Macro (PS3.3 10.6): the request and the scheduled step that a series fulfils.
class VARNOTIX_EXPORT CDcmRequestAttributeSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmRequestAttributeSequence)
    DCM_TEXT    (RequestedProcedureID,              "0040", "1001")
    DCM_TEXT    (ScheduledProcedureStepID,          "0040", "0009")
    DCM_TEXT    (ScheduledProcedureStepDescription, "0040", "0007")
    DCM_SEQUENCE(ScheduledProtocol, CDcmCodeSequenceMacroEx, "0040", "0008")
    // clang-format on
};
