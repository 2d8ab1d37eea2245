#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// SC Equipment Module (PS3.3 C.8.6.1): the equipment that captured the image.
class VARNOTIX_EXPORT CDcmSCEquipmentModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmSCEquipmentModule)
    DCM_TEXT     (ConversionType,                              "0008", "0064")
    DCM_TEXT     (Modality,                                    "0008", "0060")
    DCM_TEXT     (SecondaryCaptureDeviceID,                    "0018", "1010")
    DCM_TEXT     (SecondaryCaptureDeviceManufacturer,          "0018", "1016")
    DCM_TEXT     (SecondaryCaptureDeviceManufacturerModelName, "0018", "1018")
    DCM_TEXT_LIST(SecondaryCaptureDeviceSoftwareVersion,       "0018", "1019")
    DCM_TEXT     (VideoImageFormatAcquired,                    "0018", "1022")
    DCM_TEXT     (DigitalImageFormatAcquired,                  "0018", "1023")
    // clang-format on
};
