/// The codes of protocol data units, and their names for logs and messages.
#pragma once

#include "Varnotix/platform/Export.h"

namespace Varnotix
{

/// PDU types (PS3.8 section 9.3.1).
enum EPduType : int
{
    PDU_ASSOCIATE_RQ = 1,
    PDU_ASSOCIATE_AC = 2,
    PDU_ASSOCIATE_RJ = 3,
    PDU_DATA_TF = 4,
    PDU_RELEASE_RQ = 5,
    PDU_RELEASE_RP = 6,
    PDU_ABORT = 7
};

/// Types of the items and sub-items of an A-ASSOCIATE PDU (PS3.8 sections 9.3.2 and 9.3.3, Annex D; PS3.7 Annex D.3.3).
enum EPduItem : int
{
    PDU_ITEM_APPLICATION_CONTEXT = 0x10,
    PDU_ITEM_CONTEXT_RQ = 0x20, ///< Presentation context of a request.
    PDU_ITEM_CONTEXT_AC = 0x21, ///< Presentation context of an answer.
    PDU_ITEM_ABSTRACT_SYNTAX = 0x30,
    PDU_ITEM_TRANSFER_SYNTAX = 0x40,
    PDU_ITEM_USER_INFORMATION = 0x50,
    PDU_ITEM_MAXIMUM_LENGTH = 0x51,
    PDU_ITEM_IMPLEMENTATION_CLASS = 0x52,
    PDU_ITEM_ASYNCHRONOUS_OPERATIONS = 0x53,
    PDU_ITEM_ROLE_SELECTION = 0x54,
    PDU_ITEM_IMPLEMENTATION_VERSION = 0x55,
    PDU_ITEM_EXTENDED_NEGOTIATION = 0x56,
    PDU_ITEM_COMMON_EXTENDED_NEGOTIATION = 0x57,
    PDU_ITEM_USER_IDENTITY_RQ = 0x58,
    PDU_ITEM_USER_IDENTITY_AC = 0x59
};

// Each returns a static text, and "unknown" for a code that the standard does not list.

/// The name of a PDU type: "A-ASSOCIATE-RQ" and so on.
VARNOTIX_EXPORT const char* PduTypeName(int type);
/// The meaning of the result of an A-ASSOCIATE-RJ (PS3.8 table 9-21).
VARNOTIX_EXPORT const char* RejectResultText(int result);
/// The meaning of the source of an A-ASSOCIATE-RJ (PS3.8 table 9-21).
VARNOTIX_EXPORT const char* RejectSourceText(int source);
/// The meaning of the reason of an A-ASSOCIATE-RJ, which depends on the source (PS3.8 table 9-21).
VARNOTIX_EXPORT const char* RejectReasonText(int source, int reason);
/// The meaning of the source of an A-ABORT (PS3.8 table 9-26).
VARNOTIX_EXPORT const char* AbortSourceText(int source);
/// The meaning of the reason of an A-ABORT. Only the service provider, source 2, gives one (PS3.8 table 9-26).
VARNOTIX_EXPORT const char* AbortReasonText(int source, int reason);
/// The meaning of the result of a presentation context in an A-ASSOCIATE-AC (PS3.8 table 9-18).
VARNOTIX_EXPORT const char* ContextResultText(int result);

} // namespace Varnotix
