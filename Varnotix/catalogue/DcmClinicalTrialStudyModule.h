#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Clinical Trial Study Module (PS3.3 C.7.2.3): the time point of the trial.
class VARNOTIX_EXPORT CDcmClinicalTrialStudyModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmClinicalTrialStudyModule)
    DCM_TEXT(TrialTimePointID,          "0012", "0050")
    DCM_TEXT(TrialTimePointDescription, "0012", "0051")
    // clang-format on
};
