#pragma once

#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Person Identification Macro (PS3.3 10.1): a person by code, with address and institution.
class VARNOTIX_EXPORT CDcmPersonIdentificationMacro : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmPersonIdentificationMacro)
    DCM_TEXT     (PersonAddress,          "0040", "1102")
    DCM_TEXT_LIST(PersonTelephoneNumbers, "0040", "1103")
    DCM_TEXT     (InstitutionName,        "0008", "0080")
    DCM_TEXT     (InstitutionAddress,     "0008", "0081")
    DCM_SEQUENCE (PersonCode, CDcmCodeSequenceMacroEx,      "0040", "1101")
    DCM_SEQUENCE (InstitutionCode, CDcmCodeSequenceMacroEx, "0008", "0082")
    // clang-format on
};
