#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// File Meta Information (PS3.10 section 7.1): the elements of group 0002.
///
/// The library fills none of them by itself; what a file needs, the host sets.
class VARNOTIX_EXPORT CDcmMetaFileInformation : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmMetaFileInformation)
    DCM_INITIALIZE_MODULE()
    DCM_VALUE(MetaVersion,               "0002", "0001", CByteArray&, CByteArray&, CByteArray)
    DCM_TEXT (MediaClassUID,             "0002", "0002")
    DCM_TEXT (MediaInstanceUID,          "0002", "0003")
    DCM_TEXT (TransferSyntaxUID,         "0002", "0010")
    DCM_TEXT (ImplementationClassUID,    "0002", "0012")
    DCM_TEXT (ImplementationVersionName, "0002", "0013")
    DCM_TEXT (SourceApplicationEntity,   "0002", "0016")
    DCM_TEXT (PrivateCreatorUID,         "0002", "0100")
    DCM_VALUE(PrivateInformation,        "0002", "0102", const CByteArray&, const CByteArray&, CByteArray)
    // clang-format on
};
