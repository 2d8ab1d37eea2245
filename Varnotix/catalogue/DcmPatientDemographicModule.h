#pragma once

#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"
#include "Varnotix/catalogue/DcmPrimaryLanguageSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Patient Demographic Module (PS3.3 C.2.3): age, origin and address of the patient.
class VARNOTIX_EXPORT CDcmPatientDemographicModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmPatientDemographicModule)
    DCM_TEXT     (PatientAge,                 "0010", "1010")
    DCM_TEXT     (Occupation,                 "0010", "2180")
    DCM_TEXT     (ConfidentialityConstraint,  "0040", "3001")
    DCM_TEXT     (PatientBirthDate,           "0010", "0030")
    DCM_TEXT     (PatientBirthTime,           "0010", "0032")
    DCM_TEXT     (PatientSex,                 "0010", "0040")
    DCM_TEXT     (PatientSize,                "0010", "1020")
    DCM_TEXT     (PatientWeight,              "0010", "1030")
    DCM_TEXT     (PatientAddress,             "0010", "1040")
    DCM_TEXT     (MilitaryRank,               "0010", "1080")
    DCM_TEXT     (BranchOfService,            "0010", "1081")
    DCM_TEXT     (CountryOfResidence,         "0010", "2150")
    DCM_TEXT     (RegionOfResidence,          "0010", "2152")
    DCM_TEXT_LIST(PatientTelephoneNumbers,    "0010", "2154")
    DCM_TEXT     (EthnicGroup,                "0010", "2160")
    DCM_TEXT     (PatientReligiousPreference, "0010", "21F0")
    DCM_TEXT     (PatientComments,            "0010", "4000")
    DCM_SEQUENCE (InsurancePlan, CDcmCodeSequenceMacroEx,       "0010", "0050")
    DCM_SEQUENCE (PrimaryLanguage, CDcmPrimaryLanguageSequence, "0010", "0101")
    // clang-format on
};
