/// What both sides of an association share: the items they send, the command sets they gather, the words for its end.
#pragma once

#include "Connection.h"
#include "EchoMessage.h"

#include <string>

inline constexpr const char* kApplicationContext = "1.2.840.10008.3.1.1.1";

/// Reasons of an A-ABORT by the service provider (PS3.8 table 9-26).
enum EAbortReason : int
{
    ABORT_UNEXPECTED_PDU = 2,
    ABORT_INVALID_VALUE = 6
};

/// The other side did what the protocol does not allow: the association is to be aborted with the reason.
class CProtocolFailure : public CEchoFailure
{
public:
    CProtocolFailure(EAbortReason reason, const std::string& text) : CEchoFailure(text), m_reason(reason) {}
    EAbortReason Reason() const { return m_reason; }

private:
    EAbortReason m_reason;
};

/// A title as PS3.8 wants it on the wire: 16 characters, padded with spaces. The library writes titles as they are.
CString PaddedTitle(const std::string& title);

/// A title as it was received, without its padding.
std::string PlainTitle(const CString& title);

/// Adds the maximum length and the implementation class UID (PS3.8 Annex D).
void AddUserInformation(CDcmProtocolDataUnit& pdu);

void SendAbort(CConnection& connection, EAbortReason reason);
void SendMessage(CConnection& connection, int contextId, const SEchoMessage& message);

// The end of an association in words, with the numbers of the PDU.
std::string RejectText(const CDcmProtocolDataUnit& pdu);
std::string AbortText(const CDcmProtocolDataUnit& pdu);
std::string UnexpectedText(const CDcmProtocolDataUnit& pdu);

/// One command set, gathered from the fragments of one or more P-DATA-TF PDUs.
class CCommandFragments
{
public:
    /// Takes the PDU's fragments; throws CProtocolFailure for a data set, which C-ECHO has none of, for what follows
    /// the last fragment, for a second context, and for more bytes than any command set of ours has.
    /// @return true when the command set is complete.
    bool Take(const CDcmProtocolDataUnit& pdu);

    int ContextID() const { return m_contextId; }
    const CByteArray& Bytes() const { return m_bytes; }

private:
    int m_contextId = -1;
    bool m_isComplete = false;
    CByteArray m_bytes;
};
