#pragma once

#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Device Sequence (PS3.3 C.7.6.12): one device, coded and measured.
class VARNOTIX_EXPORT CDcmDeviceSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmDeviceSequence)
    DCM_TEXT   (DeviceLength,        "0050", "0014")
    DCM_TEXT   (DeviceDiameter,      "0050", "0016")
    DCM_TEXT   (DeviceDiameterUnits, "0050", "0017")
    DCM_TEXT   (DeviceVolume,        "0050", "0018")
    DCM_TEXT   (InterMarkerDistance, "0050", "0019")
    DCM_TEXT   (DeviceDescription,   "0050", "0020")
    DCM_INCLUDE(Code, CDcmCodeSequenceMacroEx)
    // clang-format on
};
