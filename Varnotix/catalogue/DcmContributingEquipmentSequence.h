#pragma once

#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Contributing Equipment Sequence (PS3.3 C.12.1): equipment that had a part in the object.
class VARNOTIX_EXPORT CDcmContributingEquipmentSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmContributingEquipmentSequence)
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
    DCM_TEXT     (ContributionDateTime,        "0018", "A002")
    DCM_TEXT     (ContributionDescription,     "0018", "A003")
    DCM_SEQUENCE (PurposeOfReference, CDcmCodeSequenceMacroEx, "0040", "A170")
    // clang-format on
};
