#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Encrypted Attributes Sequence (PS3.3 C.12.1): attributes that were taken out and encrypted.
class VARNOTIX_EXPORT CDcmEncryptedAttributesSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmEncryptedAttributesSequence)
    DCM_TEXT (TransferSyntaxUID, "0400", "0510")
    DCM_BYTES(EncryptedContent,  "0400", "0520")
    // clang-format on
};
