#pragma once

#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"
#include "Varnotix/catalogue/DcmContrastAdministrationRouteSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Contrast/Bolus Module (PS3.3 C.7.6.4): the contrast agent and how it was given.
class VARNOTIX_EXPORT CDcmContrastBolusModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmContrastBolusModule)
    DCM_TEXT     (ContrastBolusAgent,                   "0018", "0010")
    DCM_TEXT     (ContrastBolusRoute,                   "0018", "1040")
    DCM_TEXT     (ContrastBolusVolume,                  "0018", "1041")
    DCM_TEXT     (ContrastBolusStartTime,               "0018", "1042")
    DCM_TEXT     (ContrastBolusStopTime,                "0018", "1043")
    DCM_TEXT     (ContrastBolusTotalDose,               "0018", "1044")
    DCM_TEXT_LIST(ContrastFlowRates,                    "0018", "1046")
    DCM_TEXT_LIST(ContrastFlowDurations,                "0018", "1047")
    DCM_TEXT     (ContrastBolusIngredient,              "0018", "1048")
    DCM_TEXT     (ContrastBolusIngredientConcentration, "0018", "1049")
    DCM_SEQUENCE (ContrastBolusAgentCode, CDcmCodeSequenceMacroEx,                      "0018", "0012")
    DCM_SEQUENCE (ContrastAdministrationRoute, CDcmContrastAdministrationRouteSequence, "0018", "0014")
    // clang-format on
};
