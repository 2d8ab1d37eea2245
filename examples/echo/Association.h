/// What both sides of an association share: the items they send, the command sets they gather, the texts for its end.
#pragma once

#include "Connection.h"
#include "EchoMessage.h"

#include <string>

inline constexpr const char* kApplicationContext = "1.2.840.10008.3.1.1.1";

/// A title as PS3.8 requires it on the wire: 16 characters, padded with spaces. The library does not pad titles.
CString PaddedTitle(const std::string& title);

/// A title as it was received, without its padding.
std::string PlainTitle(const CString& title);

/// Adds the maximum length and the implementation class UID (PS3.8 Annex D).
void AddUserInformation(CDcmProtocolDataUnit& pdu);

void SendAbort(CConnection& connection, EAbortReason reason);
void SendMessage(CConnection& connection, int contextId, const SEchoMessage& message);

// Messages about the end of an association, with the codes of the PDU.
std::string RejectText(const CDcmProtocolDataUnit& pdu);
std::string AbortText(const CDcmProtocolDataUnit& pdu);
std::string UnexpectedText(const CDcmProtocolDataUnit& pdu);

/// One command set, gathered from the fragments of one or more P-DATA-TF PDUs.
class CCommandFragments
{
public:
    /// Takes the PDU's fragments. Throws CProtocolFailure for a fragment of a data set, which C-ECHO does not have, for
    /// fragments after the last one, for a second context, and for more bytes than a C-ECHO command set can have.
    /// @return true when the command set is complete.
    bool Take(const CDcmProtocolDataUnit& pdu);

    int ContextID() const { return m_contextId; }
    const CByteArray& Bytes() const { return m_bytes; }

private:
    int m_contextId = -1;
    bool m_isComplete = false;
    CByteArray m_bytes;
};
