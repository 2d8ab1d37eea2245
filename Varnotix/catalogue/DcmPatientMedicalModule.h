#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Patient Medical Module (PS3.3 C.2.4): the patient's medical state.
class VARNOTIX_EXPORT CDcmPatientMedicalModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmPatientMedicalModule)
    DCM_TEXT     (PatientState,             "0038", "0500")
    DCM_US       (PregnancyStatus,          "0010", "21C0")
    DCM_TEXT_LIST(MedicalAlerts,            "0010", "2000")
    DCM_TEXT_LIST(ContrastAllergies,        "0010", "2110")
    DCM_TEXT     (SpecialNeeds,             "0038", "0050")
    DCM_TEXT     (LastMenstrualDate,        "0010", "21D0")
    DCM_TEXT     (SmokingStatus,            "0010", "21A0")
    DCM_TEXT     (AdditionalPatientHistory, "0010", "21B0")
    // clang-format on
};
