#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Digital Signatures Sequence (PS3.3 C.12.1): one signature.
class VARNOTIX_EXPORT CDcmDigitalSignatureSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmDigitalSignatureSequence)
    DCM_US   (MacIDNumber,              "0400", "0005")
    DCM_TEXT (DigitalSignatureUID,      "0400", "0100")
    DCM_TEXT (DigitalSignatureDateTime, "0400", "0105")
    DCM_TEXT (CertificateType,          "0400", "0110")
    DCM_BYTES(CertificateOfSigner,      "0400", "0115")
    DCM_BYTES(Signature,                "0400", "0120")
    DCM_TEXT (CertifiedTimestampType,   "0400", "0305")
    DCM_BYTES(CertifiedTimestamp,       "0400", "0310")
    // clang-format on
};
