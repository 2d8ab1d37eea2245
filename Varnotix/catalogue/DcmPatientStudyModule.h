#pragma once

#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Patient Study Module (PS3.3 C.7.2.2): the patient at the time of the study.
class VARNOTIX_EXPORT CDcmPatientStudyModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmPatientStudyModule)
    DCM_TEXT_LIST(AdmittingDiagnosesDescription, "0008", "1080")
    DCM_TEXT     (PatientAge,                    "0010", "1010")
    DCM_TEXT     (PatientSize,                   "0010", "1020")
    DCM_TEXT     (PatientWeight,                 "0010", "1030")
    DCM_TEXT     (Occupation,                    "0010", "2180")
    DCM_TEXT     (AdditionalPatientHistory,      "0010", "21B0")
    DCM_SEQUENCE (AdmittingDiagnoses, CDcmCodeSequenceMacroEx, "0008", "1084")
    // clang-format on
};
