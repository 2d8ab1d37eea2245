#pragma once

#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmModule.h"

/// Command elements (PS3.7 Annex E): the fields of a message's command set.
class VARNOTIX_EXPORT CDcmServiceModule : public CDcmModule
{
    // clang-format off
    DCM_MODULE(CDcmServiceModule)
    DCM_TEXT   (AffectedSOPClassUID,       "0000", "0002")
    DCM_TEXT   (RequestedSOPClassUID,      "0000", "0003")
    DCM_US     (CommandField,              "0000", "0100")
    DCM_US     (MessageID,                 "0000", "0110")
    DCM_US     (MessageIDBeingRespondedTo, "0000", "0120")
    DCM_TEXT   (MoveDestination,           "0000", "0600")
    DCM_US     (Priority,                  "0000", "0700")
    DCM_US     (DataSetType,               "0000", "0800")
    DCM_US     (Status,                    "0000", "0900")
    DCM_US_LIST(OffendingElement,          "0000", "0901")
    DCM_TEXT   (ErrorComment,              "0000", "0902")
    DCM_US     (ErrorID,                   "0000", "0903")
    DCM_TEXT   (AffectedSOPInstanceUID,    "0000", "1000")
    DCM_TEXT   (RequestedSOPInstanceUID,   "0000", "1001")
    DCM_US     (EventTypeID,               "0000", "1002")
    DCM_US_LIST(AttributeIdentifierList,   "0000", "1005")
    DCM_US     (ActionTypeID,              "0000", "1008")
    DCM_US     (RemainingSubOperations,    "0000", "1020")
    DCM_US     (CompletedSubOperations,    "0000", "1021")
    DCM_US     (FailedSubOperations,       "0000", "1022")
    DCM_US     (WarningSubOperations,      "0000", "1023")
    DCM_TEXT   (MoveOriginatorAETitle,     "0000", "1030")
    DCM_US     (MoveOriginatorMessageID,   "0000", "1031")
    // clang-format on
};
