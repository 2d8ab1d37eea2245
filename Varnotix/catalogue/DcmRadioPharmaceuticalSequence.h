#pragma once

#include "Varnotix/catalogue/DcmCalibrationDataSequence.h"
#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of the Radiopharmaceutical Information Sequence (PS3.3 C.8.4.10): one radiopharmaceutical.
class VARNOTIX_EXPORT CDcmRadioPharmaceuticalSequence : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmRadioPharmaceuticalSequence)
    DCM_INITIALIZE_SEQUENCE()
    DCM_TEXT    (Route,                   "0018", "1070")
    DCM_TEXT    (Volume,                  "0018", "1071")
    DCM_TEXT    (StartTime,               "0018", "1072")
    DCM_TEXT    (StopTime,                "0018", "1073")
    DCM_TEXT    (TotalDose,               "0018", "1074")
    DCM_TEXT    (RadiopharmaceuticalName, "0018", "0031")
    DCM_SEQUENCE(Radionuclide, CDcmCodeSequenceMacroEx,        "0054", "0300")
    DCM_SEQUENCE(AdministrationRoute, CDcmCodeSequenceMacroEx, "0054", "0302")
    DCM_SEQUENCE(CalibrationData, CDcmCalibrationDataSequence, "0054", "0306")
    DCM_SEQUENCE(Radiopharmaceutical, CDcmCodeSequenceMacroEx, "0054", "0304")
    // clang-format on
};
