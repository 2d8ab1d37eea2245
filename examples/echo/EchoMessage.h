/// The messages of the Verification service: DIMSE command sets (PS3.7 section 9.3.5 and Annex E).
#pragma once

#include "Varnotix/Varnotix.h"

inline constexpr const char* kVerificationClass = "1.2.840.10008.1.1";
inline constexpr const char* kImplicitLittleEndian = "1.2.840.10008.1.2";

/// Command Field (0000,0100).
inline constexpr WORD kEchoRequest = 0x0030;
inline constexpr WORD kEchoResponse = 0x8030;

/// The values of a C-ECHO command set.
struct SEchoMessage
{
    WORD command = kEchoRequest;
    /// Message ID in a request, Message ID Being Responded To in a response.
    WORD messageId = 1;
    /// Of a response; 0 is success.
    WORD status = 0;
};

/// Writes the command set in implicit VR little endian, with its group length.
void EncodeMessage(const SEchoMessage& message, CByteArray& bytes);

/// Reads a command set.
/// @return false when it is not a C-ECHO request or response, or lacks an element.
bool DecodeMessage(const CByteArray& bytes, SEchoMessage& message);
