#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Energy Window Range Sequence (PS3.3 C.8.4.10): the limits of an energy window.
class VARNOTIX_EXPORT CDcmWindowEnergyRangeSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmWindowEnergyRangeSequence)
    DCM_INITIALIZE_SEQUENCE()
    DCM_TEXT(EnergyWindowLowerLimit, "0054", "0014")
    DCM_TEXT(EnergyWindowUpperLimit, "0054", "0015")
    // clang-format on
};
