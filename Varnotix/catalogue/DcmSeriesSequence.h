#pragma once

#include "Varnotix/catalogue/DcmSopSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Series and Instance Reference Macro (PS3.3 10.4): a series, where it is kept and its objects.
class VARNOTIX_EXPORT CDcmSeriesSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmSeriesSequence)
    DCM_TEXT     (SeriesInstanceUID,      "0020", "000E")
    DCM_TEXT_LIST(RetrieveAETitle,        "0008", "0054")
    DCM_TEXT     (StorageMediaFileSetID,  "0088", "0130")
    DCM_TEXT     (StorageMediaFileSetUID, "0088", "0140")
    DCM_SEQUENCE (ReferencedSop, CDcmSopSequence, "0008", "1199")
    // clang-format on
};
