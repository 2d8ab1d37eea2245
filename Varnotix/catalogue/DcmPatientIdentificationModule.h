#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Patient Identification Module (PS3.3 C.2.2): names and identifiers of the patient.
class VARNOTIX_EXPORT CDcmPatientIdentificationModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmPatientIdentificationModule)
    DCM_TEXT                (PatientName,            "0010", "0010")
    DCM_TEXT                (PatientID,              "0010", "0020")
    DCM_TEXT_AND_LIST_SETTER(IssuerOfPatientID, IssuerOfPatient, "0010", "0021")
    DCM_TEXT_LIST           (OtherPatientID,         "0010", "1000")
    DCM_TEXT                (PatientBirthName,       "0010", "1005")
    DCM_TEXT                (PatientMotherBirthName, "0010", "1060")
    DCM_TEXT                (MedicalRecordLocator,   "0010", "1090")
    // clang-format on
};
