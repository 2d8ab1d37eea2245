#pragma once

#include "Varnotix/catalogue/DcmCodeAndModifer.h"
#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// NM/PET Patient Orientation Module (PS3.3 C.8.4.6): how the patient lay in the scanner.
class VARNOTIX_EXPORT CDcmNMPetOrientationModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmNMPetOrientationModule)
    DCM_INITIALIZE_MODULE()
    DCM_SEQUENCE(PatientOrientation, CDcmCodeAndModifer,             "0054", "0410", "0054", "0412")
    DCM_SEQUENCE(PatientGantryRelationship, CDcmCodeSequenceMacroEx, "0054", "0414")
    // clang-format on
};
