#pragma once

#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"
#include "Varnotix/catalogue/DcmPersonIdentificationMacro.h"
#include "Varnotix/catalogue/DcmSopSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// General Study Module (PS3.3 C.7.2.1): what all objects of a study have in common.
class VARNOTIX_EXPORT CDcmGeneralStudyModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmGeneralStudyModule)
    DCM_TEXT    (StudyInstanceUID,            "0020", "000D")
    DCM_TEXT    (StudyDate,                   "0008", "0020")
    DCM_TEXT    (StudyTime,                   "0008", "0030")
    DCM_TEXT    (ReferringPhysicianName,      "0008", "0090")
    DCM_TEXT    (StudyID,                     "0020", "0010")
    DCM_TEXT    (Accession_Number,            "0008", "0050")
    DCM_TEXT    (StudyDescription,            "0008", "1030")
    DCM_TEXT    (PhysicianOfRecord,           "0008", "1048")
    DCM_TEXT    (NameOfPhysicianReadingStudy, "0008", "1060")
    DCM_SEQUENCE(ReferringPhysicianId, CDcmPersonIdentificationMacro,    "0008", "0096")
    DCM_SEQUENCE(PhysicianOfRecordId, CDcmPersonIdentificationMacro,     "0008", "1049")
    DCM_SEQUENCE(PhysicianReadingStudyId, CDcmPersonIdentificationMacro, "0008", "1062")
    DCM_SEQUENCE(ReferencedStudy, CDcmSopSequence,                       "0008", "1110")
    DCM_SEQUENCE(ProcedureCode, CDcmCodeSequenceMacroEx,                 "0008", "1032")
    // clang-format on
};
