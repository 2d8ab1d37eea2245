#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Coding Scheme Identification Sequence (PS3.3 C.12.1): what a coding scheme designator means.
class VARNOTIX_EXPORT CDcmCodingSchemeIdSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmCodingSchemeIdSequence)
    DCM_TEXT(CodingSchemeDesignator,  "0008", "0102")
    DCM_TEXT(CodingSchemeRegistry,    "0008", "0112")
    DCM_TEXT(CodingSchemeUID,         "0008", "010C")
    DCM_TEXT(CodingSchemeExternalUID, "0008", "0114")
    DCM_TEXT(CodingSchemeName,        "0008", "0115")
    DCM_TEXT(CodingSchemeVersion,     "0008", "0103")
    DCM_TEXT(ResponsibleOrganization, "0008", "0116")
    // clang-format on
};
