#pragma once

#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Patient's Primary Language Code Sequence (PS3.3 C.2.3): a language and its variant.
class VARNOTIX_EXPORT CDcmPrimaryLanguageSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmPrimaryLanguageSequence)
    DCM_INCLUDE (Code, CDcmCodeSequenceMacroEx)
    DCM_SEQUENCE(Modifier, CDcmCodeSequenceMacroEx, "0010", "0102")
    // clang-format on
};
