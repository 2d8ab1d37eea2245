#pragma once

#include "Varnotix/catalogue/DcmCodingSchemeIdSequence.h"
#include "Varnotix/catalogue/DcmContributingEquipmentSequence.h"
#include "Varnotix/catalogue/DcmDigitalSignatureSequence.h"
#include "Varnotix/catalogue/DcmEncryptedAttributesSequence.h"
#include "Varnotix/catalogue/DcmMACParameterSequence.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// SOP Common Module (PS3.3 C.12.1): what identifies an object.
class VARNOTIX_EXPORT CDcmSOPCommonModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmSOPCommonModule)
    DCM_TEXT     (SOPClassUID,                      "0008", "0016")
    DCM_TEXT     (SOPInstanceUID,                   "0008", "0018")
    DCM_TEXT_LIST(SpecificCharacterSet,             "0008", "0005")
    DCM_TEXT     (InstanceCreationDate,             "0008", "0012")
    DCM_TEXT     (InstanceCreationTime,             "0008", "0013")
    DCM_TEXT     (InstanceCreatorUID,               "0008", "0014")
    DCM_TEXT     (OffsetFromUTC,                    "0008", "0201")
    DCM_TEXT     (InstanceNumber,                   "0020", "0013")
    DCM_TEXT     (SOPInstanceStatus,                "0100", "0410")
    DCM_TEXT     (SOPAuthDateAndTime,               "0100", "0420")
    DCM_TEXT     (SOPAuthorizationComment,          "0100", "0424")
    DCM_TEXT     (AuthEquipmentCertificationNumber, "0100", "0426")
    DCM_SEQUENCE (CodingScheme, CDcmCodingSchemeIdSequence,                 "0008", "0110")
    DCM_SEQUENCE (ContributingEquipment, CDcmContributingEquipmentSequence, "0018", "A001")
    DCM_SEQUENCE (MACParameters, CDcmMACParameterSequence,                  "4FFE", "0001")
    DCM_SEQUENCE (DigitalSignatures, CDcmDigitalSignatureSequence,          "FFFA", "FFFA")
    DCM_SEQUENCE (EncryptedAttributes, CDcmEncryptedAttributesSequence,     "0400", "0500")
    // clang-format on
};
