#pragma once

#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"
#include "Varnotix/catalogue/DcmSeriesSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Referenced Waveform Sequence (PS3.3 C.7.6.1): waveforms that belong to the image.
class VARNOTIX_EXPORT CDcmWaveformSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmWaveformSequence)
    DCM_TEXT    (StudyInstanceUID, "0020", "000D")
    DCM_SEQUENCE(ReferencedSeries, CDcmSeriesSequence,        "0008", "1115")
    DCM_SEQUENCE(PurposeOfReference, CDcmCodeSequenceMacroEx, "0040", "A170")
    // clang-format on
};
