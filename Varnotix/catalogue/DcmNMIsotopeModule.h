#pragma once

#include "Varnotix/catalogue/DcmInterventionDrugSequence.h"
#include "Varnotix/catalogue/DcmRadioPharmaceuticalSequence.h"
#include "Varnotix/catalogue/DcmWindowInformationSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// NM Isotope Module (PS3.3 C.8.4.10): radiopharmaceuticals and energy windows.
class VARNOTIX_EXPORT CDcmNMIsotopeModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmNMIsotopeModule)
    DCM_INITIALIZE_MODULE()
    DCM_SEQUENCE(EnergyWindow, CDcmWindowInformationSequence,          "0054", "0012")
    DCM_SEQUENCE(Radiopharmaceutical, CDcmRadioPharmaceuticalSequence, "0054", "0016")
    DCM_SEQUENCE(InterventionDrug, CDcmInterventionDrugSequence,       "0018", "0026")
    // clang-format on
};
