#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Clinical Trial Series Module (PS3.3 C.7.3.2): who coordinates the trial's series.
class VARNOTIX_EXPORT CDcmClinicalTrialSeriesModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmClinicalTrialSeriesModule)
    DCM_TEXT(TrialCoordinatingCenterName, "0012", "0060")
    // clang-format on
};
