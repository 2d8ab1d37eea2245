#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the MAC Parameters Sequence (PS3.3 C.12.1): how a message authentication code is made.
class VARNOTIX_EXPORT CDcmMACParameterSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmMACParameterSequence)
    DCM_US     (IDNumber,                     "0400", "0005")
    DCM_TEXT   (CalculationTransferSyntaxUID, "0400", "0010")
    DCM_TEXT   (Algorithm,                    "0400", "0015")
    DCM_US_LIST(DataElementsSigned,           "0400", "0020")
    // clang-format on
};
