#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// General Equipment Module (PS3.3 C.7.5.1): the equipment that made the series.
class VARNOTIX_EXPORT CDcmGeneralEquipmentModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmGeneralEquipmentModule)
    DCM_TEXT     (Manufacturer,                "0008", "0070")
    DCM_TEXT     (InstitutionName,             "0008", "0080")
    DCM_TEXT     (InstitutionAddress,          "0008", "0081")
    DCM_TEXT     (StationName,                 "0008", "1010")
    DCM_TEXT     (InstitutionalDepartmentName, "0008", "1040")
    DCM_TEXT     (ManufacturerModelName,       "0008", "1090")
    DCM_TEXT     (DeviceSerialNumber,          "0018", "1000")
    DCM_TEXT_LIST(SoftwareVersions,            "0018", "1020")
    DCM_TEXT     (SpatialResolution,           "0018", "1050")
    DCM_TEXT_LIST(DateOfLastCalibration,       "0018", "1200")
    DCM_TEXT_LIST(TimeOfLastCalibration,       "0018", "1201")
    DCM_US       (PixelPaddingValue,           "0028", "0120")
    // clang-format on
};
