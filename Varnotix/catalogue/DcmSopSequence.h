#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// SOP Instance Reference Macro (PS3.3 10.8): a reference to another object.
class VARNOTIX_EXPORT CDcmSopSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmSopSequence)
    DCM_INITIALIZE_SEQUENCE()
    DCM_TEXT(ReferencedSOPClassUID,    "0008", "1150")
    DCM_TEXT(ReferencedSOPInstanceUID, "0008", "1155")
    // clang-format on
};
