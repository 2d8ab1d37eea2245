#pragma once

#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"

/// Item of the Specimen Sequence (PS3.3 C.7.1.2, retired): the specimen that was imaged.
class VARNOTIX_EXPORT CDcmSpecimenSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmSpecimenSequence)
    DCM_TEXT    (SpecimenIdentifier, "0040", "0551")
    DCM_TEXT    (SlideIdentifier,    "0040", "06FA")
    DCM_SEQUENCE(SpecimenType, CDcmCodeSequenceMacroEx, "0040", "059A")
    // clang-format on
};
