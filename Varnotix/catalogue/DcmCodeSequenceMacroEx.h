#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Code Sequence Macro (PS3.3 8.8): a coded concept.
class VARNOTIX_EXPORT CDcmCodeSequenceMacroEx : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmCodeSequenceMacroEx)
    DCM_INITIALIZE_SEQUENCE()
    DCM_TEXT(CodeValue,                       "0008", "0100")
    DCM_TEXT(CodingSchemeDesignator,          "0008", "0102")
    DCM_TEXT(CodingSchemeVersion,             "0008", "0103")
    DCM_TEXT(CodeMeaning,                     "0008", "0104")
    DCM_TEXT(ContextIdentifier,               "0008", "010F")
    DCM_TEXT(MappingResource,                 "0008", "0105")
    DCM_TEXT(ContextGroupVersion,             "0008", "0106")
    DCM_TEXT(ContextGroupExtensionFlag,       "0008", "010B")
    DCM_TEXT(ContextGroupLocalVersion,        "0008", "0107")
    DCM_TEXT(ContextGroupExtensionCreatorUID, "0008", "010D")
    // clang-format on
};
