#pragma once

#include "Varnotix/catalogue/DcmSopSequence.h"
#include "Varnotix/catalogue/DcmSpecimenSequence.h"
#include "Varnotix/modules/DcmModule.h"

/// Patient Module (PS3.3 C.7.1.1): who the study is about.
class VARNOTIX_EXPORT CDcmPatientModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmPatientModule)
    DCM_TEXT     (PatientName,             "0010", "0010")
    DCM_TEXT     (PatientID,               "0010", "0020")
    DCM_TEXT     (PatientBirthDate,        "0010", "0030")
    DCM_TEXT     (PatientSex,              "0010", "0040")
    DCM_TEXT     (PatientBirthTime,        "0010", "0032")
    DCM_TEXT_LIST(OtherPatientID,          "0010", "1000")
    DCM_TEXT_LIST(OtherPatientNames,       "0010", "1001")
    DCM_TEXT     (EthnicGroup,             "0010", "2160")
    DCM_TEXT     (PatientComments,         "0010", "4000")
    DCM_TEXT     (SpecimenAccessionNumber, "0040", "050A")
    DCM_SEQUENCE (ReferencedPatient, CDcmSopSequence, "0008", "1120")
    DCM_SEQUENCE (Specimen, CDcmSpecimenSequence,     "0040", "0550")
    // clang-format on
};
