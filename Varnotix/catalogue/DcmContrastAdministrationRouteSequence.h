#pragma once

#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Contrast/Bolus Administration Route Sequence (PS3.3 C.7.6.4): how the agent was given.
class VARNOTIX_EXPORT CDcmContrastAdministrationRouteSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmContrastAdministrationRouteSequence)
    DCM_INCLUDE (Code, CDcmCodeSequenceMacroEx)
    DCM_SEQUENCE(AdditionalDrug, CDcmCodeSequenceMacroEx, "0018", "002A")
    // clang-format on
};
