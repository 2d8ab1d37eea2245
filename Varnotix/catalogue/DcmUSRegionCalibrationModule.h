#pragma once

#include "Varnotix/catalogue/DcmUSRegionSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// US Region Calibration Module (PS3.3 C.8.5.5): what the regions of an ultrasound image measure.
class VARNOTIX_EXPORT CDcmUSRegionCalibrationModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmUSRegionCalibrationModule)
    DCM_SEQUENCE(UltraSoundRegions, CDcmUSRegionSequence, "0018", "6011")
    // clang-format on
};
