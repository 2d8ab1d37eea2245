/// The codes of protocol data units, and what they mean in words: for logs and messages.
#pragma once

#include "Varnotix/platform/Export.h"

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

// Each answers "unknown" for a code that the standard does not list, and never null.

/// "A-ASSOCIATE-RQ" and so on.
VARNOTIX_EXPORT const char* PduTypeName(int type);
/// The result of an A-ASSOCIATE-RJ (PS3.8 table 9-21).
VARNOTIX_EXPORT const char* RejectResultText(int result);
/// The source of an A-ASSOCIATE-RJ (PS3.8 table 9-21).
VARNOTIX_EXPORT const char* RejectSourceText(int source);
/// The reason of an A-ASSOCIATE-RJ, whose meaning depends on the source (PS3.8 table 9-21).
VARNOTIX_EXPORT const char* RejectReasonText(int source, int reason);
/// The source of an A-ABORT (PS3.8 table 9-26).
VARNOTIX_EXPORT const char* AbortSourceText(int source);
/// The reason of an A-ABORT, which only the service provider gives (PS3.8 table 9-26).
VARNOTIX_EXPORT const char* AbortReasonText(int source, int reason);
/// The result of a presentation context in an A-ASSOCIATE-AC (PS3.8 table 9-18).
VARNOTIX_EXPORT const char* ContextResultText(int result);
