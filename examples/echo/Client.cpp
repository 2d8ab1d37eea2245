// The side that asks: association, C-ECHO, release.

#include "Association.h"
#include "Echo.h"

#include <cstdio>

namespace
{

// PS3.8 asks for odd numbers.
constexpr int kContextId = 1;

/// Waits for a PDU of the type. Throws for everything else, with a message.
void Expect(CConnection& connection, Varnotix::EPduType type, CDcmProtocolDataUnit& pdu)
{
    if (!connection.Receive(pdu))
    {
        throw CEchoFailure(std::string("the other side closed the connection instead of sending ") +
                           Varnotix::PduTypeName(type));
    }
    if (pdu.PduType() == type)
    {
        return;
    }
    switch (pdu.PduType())
    {
    case Varnotix::PDU_ASSOCIATE_RJ:
        throw CEchoFailure(RejectText(pdu));
    case Varnotix::PDU_ABORT:
        throw CEchoFailure(AbortText(pdu));
    default:
        throw CProtocolFailure(ABORT_UNEXPECTED_PDU, UnexpectedText(pdu));
    }
}

void Associate(CConnection& connection, const SEchoOptions& options)
{
    CDcmProtocolDataUnit request;
    request.PduType(Varnotix::PDU_ASSOCIATE_RQ);
    request.ProtocolVersion(1);
    request.CalledAE(PaddedTitle(options.calledTitle));
    request.CallingAE(PaddedTitle(options.callingTitle));
    request.AddApplicationContextItem(kApplicationContext);
    CStringArray syntaxes;
    syntaxes.Add(kImplicitLittleEndian);
    request.AddPresentationContext(kVerificationClass, syntaxes, kContextId, 0);
    AddUserInformation(request);
    connection.Send(request);

    CDcmProtocolDataUnit accept;
    Expect(connection, Varnotix::PDU_ASSOCIATE_AC, accept);
    if (!accept.IsValidContextID(kContextId))
    {
        const int result = accept.GetContextIDResult(kContextId);
        throw CProtocolFailure(ABORT_INVALID_VALUE, std::string("the Verification service was not accepted: ") +
                                                        Varnotix::ContextResultText(result) + " (" +
                                                        std::to_string(result) + ")");
    }
}

void Echo(CConnection& connection)
{
    const SEchoMessage request;
    SendMessage(connection, kContextId, request);
    CCommandFragments fragments;
    bool isComplete = false;
    while (!isComplete)
    {
        CDcmProtocolDataUnit data;
        Expect(connection, Varnotix::PDU_DATA_TF, data);
        isComplete = fragments.Take(data);
    }
    SEchoMessage reply;
    if (!DecodeMessage(fragments.Bytes(), reply) || reply.command != kEchoResponse ||
        reply.messageId != request.messageId)
    {
        throw CProtocolFailure(ABORT_INVALID_VALUE, "the reply is not a C-ECHO response to our message");
    }
    std::printf("C-ECHO response to message %d: status %04XH, %s\n", reply.messageId, reply.status,
                reply.status == 0 ? "success" : "failure");
    if (reply.status != 0)
    {
        throw CEchoFailure("the other side answered that the echo failed");
    }
}

void Release(CConnection& connection)
{
    CDcmProtocolDataUnit request;
    request.PduType(Varnotix::PDU_RELEASE_RQ);
    connection.Send(request);
    CDcmProtocolDataUnit reply;
    Expect(connection, Varnotix::PDU_RELEASE_RP, reply);
    std::puts("released");
}

} // namespace

void RunClient(const SEchoOptions& options)
{
    CConnection connection(options.timeout);
    connection.Connect(options.host, options.port);
    try
    {
        Associate(connection, options);
        Echo(connection);
        Release(connection);
    }
    catch (const CProtocolFailure& failure)
    {
        SendAbort(connection, failure.Reason());
        throw;
    }
}
