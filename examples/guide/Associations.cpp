#include "Guide.h"

namespace
{

/// What the other side would send: it accepts every context.
CByteArray AnswerTo(const CByteArray& bytes)
{
    CDcmProtocolDataUnit request;
    request.Create(bytes);
    CDcmProtocolDataUnit answer;
    answer.PduType(Varnotix::PDU_ASSOCIATE_AC);
    answer.ProtocolVersion(1);
    answer.CalledAE(request.CalledAE());
    answer.CallingAE(request.CallingAE());
    answer.AddApplicationContextItem("1.2.840.10008.3.1.1.1");
    answer.AddPresentationContext(request.FindPresentationContext(1), 1, 0);
    answer.Create();
    CByteArray field;
    answer.PduField(field);
    return field;
}

} // namespace

void Associations()
{
    CDcmProtocolDataUnit request; // A new object for each PDU that is sent.
    request.PduType(Varnotix::PDU_ASSOCIATE_RQ);
    request.ProtocolVersion(1); // It is 0 otherwise.
    request.CalledAE("ANY-SCP         ");
    request.CallingAE("ME              ");
    request.AddApplicationContextItem("1.2.840.10008.3.1.1.1");
    CStringArray syntaxes;
    syntaxes.Add("1.2.840.10008.1.2");
    request.AddPresentationContext("1.2.840.10008.1.1", syntaxes, 1, 0);
    request.Create();
    CByteArray bytes;
    request.PduField(bytes); // To be sent.

    const CByteArray received = AnswerTo(bytes);

    CDcmProtocolDataUnit answer;
    answer.Create(received); // One whole PDU: the six bytes of its header and as many as its length says.
    if (answer.PduType() == Varnotix::PDU_ASSOCIATE_AC && answer.IsValidContextID(1))
    {
        std::cout << Varnotix::PduTypeName(answer.PduType()) << " of " << 6 + answer.PduLength() << " bytes\n";
    }
}
