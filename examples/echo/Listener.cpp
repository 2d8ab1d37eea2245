// The side that answers: accepts associations, answers C-ECHO, confirms the release.

#include "Association.h"
#include "Echo.h"

#include <cstdio>

namespace
{

// PS3.8 tables 9-18 and 9-21.
constexpr int kAccepted = 0;
constexpr int kAbstractSyntaxNotSupported = 3;
constexpr int kTransferSyntaxesNotSupported = 4;
constexpr int kRejectedPermanently = 1;
constexpr int kByUser = 1;
constexpr int kByProvider = 2;
constexpr int kApplicationContextNotSupported = 2;
constexpr int kCalledTitleNotRecognized = 7;
constexpr int kVersionNotSupported = 2;

/// Writes a line of the log and flushes it for programs that wait for it.
void Log(const std::string& text)
{
    std::puts(text.c_str());
    std::fflush(stdout);
}

struct SRefusal
{
    int source = 0;
    int reason = 0;
};

/// The reason to reject a request; source 0 when it can be accepted.
SRefusal FindRefusal(const CDcmProtocolDataUnit& request, const SEchoOptions& options)
{
    if ((request.ProtocolVersion() & 1) == 0)
    {
        return {kByProvider, kVersionNotSupported};
    }
    CStringArray names;
    request.ApplicationContextItems(names);
    if (names.GetSize() != 1 || names.GetAt(0) != CString(kApplicationContext))
    {
        return {kByUser, kApplicationContextNotSupported};
    }
    if (!options.ownTitle.empty() && PlainTitle(request.CalledAE()) != options.ownTitle)
    {
        return {kByUser, kCalledTitleNotRecognized};
    }
    return {};
}

void Reject(CConnection& connection, const SRefusal& refusal)
{
    CDcmProtocolDataUnit reject;
    reject.PduType(Varnotix::PDU_ASSOCIATE_RJ);
    reject.Result(kRejectedPermanently);
    reject.Source(refusal.source);
    reject.Reason(refusal.reason);
    connection.Send(reject);
    Log(RejectText(reject));
}

int ResultOf(const CPresentationContext& context)
{
    if (context.AbstractSyntax() != CString(kVerificationClass))
    {
        return kAbstractSyntaxNotSupported;
    }
    for (const CString& syntax : context.TransferSyntaxes())
    {
        if (syntax == kImplicitLittleEndian)
        {
            return kAccepted;
        }
    }
    return kTransferSyntaxesNotSupported;
}

void Accept(CConnection& connection, const CDcmProtocolDataUnit& request, CDcmProtocolDataUnit& accept)
{
    accept.PduType(Varnotix::PDU_ASSOCIATE_AC);
    accept.ProtocolVersion(1);
    accept.CalledAE(request.CalledAE());
    accept.CallingAE(request.CallingAE());
    accept.AddApplicationContextItem(kApplicationContext);
    // An answer has one transfer syntax per context; the library would write as many as the context has.
    CStringArray syntaxes;
    syntaxes.Add(kImplicitLittleEndian);
    CObArray contexts;
    request.PresentationContextItems(contexts);
    for (const CObject* object : contexts)
    {
        const auto& context = static_cast<const CPresentationContext&>(*object);
        accept.AddPresentationContext(context.AbstractSyntax(), syntaxes, context.ContextID(), ResultOf(context));
    }
    AddUserInformation(accept);
    connection.Send(accept);
    Log("association from '" + PlainTitle(request.CallingAE()) + "' to '" + PlainTitle(request.CalledAE()) + "'");
}

void Answer(CConnection& connection, const CCommandFragments& fragments, const CDcmProtocolDataUnit& accept)
{
    SEchoMessage message;
    if (!accept.IsValidContextID(fragments.ContextID()))
    {
        throw CProtocolFailure(ABORT_INVALID_VALUE, "a message in a context that was not accepted");
    }
    if (!DecodeMessage(fragments.Bytes(), message) || message.command != kEchoRequest)
    {
        throw CProtocolFailure(ABORT_INVALID_VALUE, "a message that is not a C-ECHO request");
    }
    message.command = kEchoResponse;
    SendMessage(connection, fragments.ContextID(), message);
    Log("C-ECHO " + std::to_string(message.messageId) + " answered");
}

/// Answers until the association ends.
void Serve(CConnection& connection, const CDcmProtocolDataUnit& accept)
{
    CCommandFragments fragments;
    for (;;)
    {
        CDcmProtocolDataUnit pdu;
        if (!connection.Receive(pdu))
        {
            throw CEchoFailure("the other side closed the connection without a release");
        }
        switch (pdu.PduType())
        {
        case Varnotix::PDU_DATA_TF:
            if (fragments.Take(pdu))
            {
                Answer(connection, fragments, accept);
                fragments = CCommandFragments();
            }
            break;
        case Varnotix::PDU_RELEASE_RQ:
        {
            CDcmProtocolDataUnit reply;
            reply.PduType(Varnotix::PDU_RELEASE_RP);
            connection.Send(reply);
            Log("released");
            return;
        }
        case Varnotix::PDU_ABORT:
            Log(AbortText(pdu));
            return;
        default:
            throw CProtocolFailure(ABORT_UNEXPECTED_PDU, UnexpectedText(pdu));
        }
    }
}

void AnswerCaller(CConnection& connection, const SEchoOptions& options)
{
    CDcmProtocolDataUnit request;
    if (!connection.Receive(request))
    {
        throw CEchoFailure("the caller closed the connection at once");
    }
    if (request.PduType() != Varnotix::PDU_ASSOCIATE_RQ)
    {
        throw CProtocolFailure(ABORT_UNEXPECTED_PDU, UnexpectedText(request));
    }
    const SRefusal refusal = FindRefusal(request, options);
    if (refusal.source != 0)
    {
        Reject(connection, refusal);
        return;
    }
    CDcmProtocolDataUnit accept;
    Accept(connection, request, accept);
    Serve(connection, accept);
}

} // namespace

void RunListener(const SEchoOptions& options)
{
    CConnection connection(options.timeout);
    Log("listening on port " + std::to_string(connection.Listen(std::stoi(options.port))));
    for (int served = 0; (options.count == 0 || served < options.count) && connection.Accept(options.idle); ++served)
    {
        try
        {
            try
            {
                AnswerCaller(connection, options);
            }
            catch (const CProtocolFailure& failure)
            {
                SendAbort(connection, failure.Reason());
                throw;
            }
        }
        catch (const CEchoFailure& failure)
        {
            Log(failure.what());
        }
    }
}
