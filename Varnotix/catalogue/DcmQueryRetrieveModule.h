#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Query/Retrieve attributes (PS3.4 Annex C): what a query asks for and what its responses contain.
class VARNOTIX_EXPORT CDcmQueryRetrieveModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmQueryRetrieveModule)
    DCM_TEXT     (QueryRetrieveLevel,            "0008", "0052")
    DCM_TEXT_LIST(SpecificCharacterSet,          "0008", "0005")
    DCM_TEXT_LIST(RetrieveAETitle,               "0008", "0054")
    DCM_TEXT     (InstanceAvailability,          "0008", "0056")
    DCM_TEXT_LIST(FailedSOPInstanceUIDList,      "0008", "0058")
    DCM_TEXT     (NumberPatientRelatedStudies,   "0020", "1200")
    DCM_TEXT     (NumberPatientRelatedSeries,    "0020", "1202")
    DCM_TEXT     (NumberPatientRelatedInstances, "0020", "1204")
    DCM_TEXT     (NumberStudyRelatedSeries,      "0020", "1206")
    DCM_TEXT     (NumberStudyRelatedInstances,   "0020", "1208")
    DCM_TEXT     (NumberSeriesRelatedInstances,  "0020", "1209")
    DCM_TEXT     (StorageMediaFileSetID,         "0088", "0130")
    DCM_TEXT     (StorageMediaFileSetUID,        "0088", "0140")
    // clang-format on
};
