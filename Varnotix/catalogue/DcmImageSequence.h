#pragma once

#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Image SOP Instance Reference Macro (PS3.3 10.3): a reference to frames of an image, and its purpose.
class VARNOTIX_EXPORT CDcmImageSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmImageSequence)
    DCM_TEXT     (ReferencedSOPClassUID,    "0008", "1150")
    DCM_TEXT     (ReferencedSOPInstanceUID, "0008", "1155")
    DCM_TEXT_LIST(ReferencedFrameNumber,    "0008", "1160")
    DCM_SEQUENCE (PurposeOfReference, CDcmCodeSequenceMacroEx, "0040", "A170")
    // clang-format on
};
