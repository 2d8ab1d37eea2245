#pragma once

#include "Varnotix/catalogue/DcmWindowEnergyRangeSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Energy Window Information Sequence (PS3.3 C.8.4.10): one energy window.
class VARNOTIX_EXPORT CDcmWindowInformationSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmWindowInformationSequence)
    DCM_INITIALIZE_SEQUENCE()
    DCM_TEXT    (EnergyWindowName, "0054", "0018")
    DCM_SEQUENCE(EnergyWindowRange, CDcmWindowEnergyRangeSequence, "0054", "0013")
    // clang-format on
};
