#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Clinical Trial Subject Module (PS3.3 C.7.1.3): the trial and its subject.
class VARNOTIX_EXPORT CDcmClinicalTrialSubjectModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmClinicalTrialSubjectModule)
    DCM_TEXT(TrialSponsorName,      "0012", "0010")
    DCM_TEXT(TrialProtocolID,       "0012", "0020")
    DCM_TEXT(TrialProtocolName,     "0012", "0021")
    DCM_TEXT(TrialSiteID,           "0012", "0030")
    DCM_TEXT(TrialSiteName,         "0012", "0031")
    DCM_TEXT(TrialSubjectID,        "0012", "0040")
    DCM_TEXT(TrialSubjectReadingID, "0012", "0042")
    // clang-format on
};
