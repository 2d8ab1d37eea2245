#include "Association.h"

namespace
{

constexpr int kTitleSize = 16;
constexpr int kMaxCommandSize = 4096;

// User data sub-items and message control bits (PS3.8 Annexes D and E).
constexpr int kMaximumLengthItem = 0x51;
constexpr int kImplementationClassItem = 0x52;
constexpr int kCommandBit = 0x01;
constexpr int kLastFragmentBit = 0x02;

/// Made from a random UUID (PS3.5 Annex B.2). A host uses its own.
constexpr const char* kImplementationClass = "2.25.30789519447163749730905263808630865631";

constexpr int kServiceProvider = 2;

std::string Coded(const char* text, int code)
{
    return std::string(text) + " (" + std::to_string(code) + ")";
}

} // namespace

CString PaddedTitle(const std::string& title)
{
    CString padded{std::string_view(title)};
    while (padded.GetLength() < kTitleSize)
    {
        padded += ' ';
    }
    return padded.Left(kTitleSize);
}

std::string PlainTitle(const CString& title)
{
    CString plain = title;
    plain.Trim();
    return std::string(plain.CText());
}

void AddUserInformation(CDcmProtocolDataUnit& pdu)
{
    // The library writes the number form of an item low byte first; the maximum length belongs in network byte order.
    CByteArray length;
    for (const int shift : {24, 16, 8, 0})
    {
        length.Add(static_cast<BYTE>(CConnection::kMaxPduLength >> shift));
    }
    pdu.AddUserDataItem(kMaximumLengthItem, length);
    pdu.AddUserDataItem(kImplementationClassItem, CString(kImplementationClass));
}

void SendAbort(CConnection& connection, EAbortReason reason)
{
    CDcmProtocolDataUnit abort;
    abort.PduType(Varnotix::PDU_ABORT);
    abort.Source(kServiceProvider);
    abort.Reason(reason);
    connection.Send(abort);
}

void SendMessage(CConnection& connection, int contextId, const SEchoMessage& message)
{
    CByteArray bytes;
    EncodeMessage(message, bytes);
    CDcmProtocolDataUnit data;
    data.PduType(Varnotix::PDU_DATA_TF);
    data.AddPresentationDataValue(bytes, contextId, kCommandBit | kLastFragmentBit);
    connection.Send(data);
}

std::string RejectText(const CDcmProtocolDataUnit& pdu)
{
    return "the association was rejected: result " + Coded(Varnotix::RejectResultText(pdu.Result()), pdu.Result()) +
           ", source " + Coded(Varnotix::RejectSourceText(pdu.Source()), pdu.Source()) + ", reason " +
           Coded(Varnotix::RejectReasonText(pdu.Source(), pdu.Reason()), pdu.Reason());
}

std::string AbortText(const CDcmProtocolDataUnit& pdu)
{
    return "the association was aborted: source " + Coded(Varnotix::AbortSourceText(pdu.Source()), pdu.Source()) +
           ", reason " + Coded(Varnotix::AbortReasonText(pdu.Source(), pdu.Reason()), pdu.Reason());
}

std::string UnexpectedText(const CDcmProtocolDataUnit& pdu)
{
    return std::string("unexpected PDU: type ") + Coded(Varnotix::PduTypeName(pdu.PduType()), pdu.PduType());
}

bool CCommandFragments::Take(const CDcmProtocolDataUnit& pdu)
{
    CObArray values;
    pdu.PresentationDataItems(values);
    for (const CObject* object : values)
    {
        const auto& value = static_cast<const CPresentationDataValue&>(*object);
        if ((value.MessageControl() & kCommandBit) == 0 || m_isComplete)
        {
            throw CProtocolFailure(ABORT_UNEXPECTED_PDU, "data that does not belong to a command set");
        }
        if (m_contextId != -1 && m_contextId != value.ContextID())
        {
            throw CProtocolFailure(ABORT_INVALID_VALUE, "a command set in two presentation contexts");
        }
        if (value.Data().GetSize() > kMaxCommandSize - m_bytes.GetSize())
        {
            throw CProtocolFailure(ABORT_INVALID_VALUE, "a command set that is too long");
        }
        m_contextId = value.ContextID();
        m_bytes.Append(value.Data());
        m_isComplete = (value.MessageControl() & kLastFragmentBit) != 0;
    }
    return m_isComplete;
}
