#pragma once

#include "Varnotix/catalogue/DcmDeviceSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Device Module (PS3.3 C.7.6.12): devices seen in the image.
class VARNOTIX_EXPORT CDcmDeviceModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmDeviceModule)
    DCM_SEQUENCE(Device, CDcmDeviceSequence, "0050", "0010")
    // clang-format on
};
