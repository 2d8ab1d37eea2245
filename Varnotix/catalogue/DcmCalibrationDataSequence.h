#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Calibration Data Sequence (PS3.3 C.8.4.10): counts of a syringe in one energy window.
class VARNOTIX_EXPORT CDcmCalibrationDataSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmCalibrationDataSequence)
    DCM_INITIALIZE_SEQUENCE()
    DCM_US  (EnergyWindowNumber,    "0054", "0308")
    DCM_TEXT(SyringeCounts,         "0018", "1045")
    DCM_TEXT(ResidualSyringeCounts, "0054", "0017")
    // clang-format on
};
