// Association PDUs: the negotiation of a store host, and items without end.

#include "Varnotix/pdu/DcmProtocolDataUnit.h"

#include <benchmark/benchmark.h>

namespace
{

/// As many contexts as context IDs allow, with three transfer syntaxes each.
void FillRequest(CDcmProtocolDataUnit& pdu)
{
    CStringArray syntaxes;
    syntaxes.Add("1.2.840.10008.1.2");
    syntaxes.Add("1.2.840.10008.1.2.1");
    syntaxes.Add("1.2.840.10008.1.2.2");
    pdu.PduType(Varnotix::PDU_ASSOCIATE_RQ);
    pdu.ProtocolVersion(1);
    pdu.CalledAE("ANY-SCP");
    pdu.CallingAE("VARNOTIX");
    pdu.AddApplicationContextItem("1.2.840.10008.3.1.1.1");
    for (int id = 1; id < 256; id += 2)
    {
        CString uid;
        uid.Format("1.2.840.10008.5.1.4.1.1.%d", id);
        pdu.AddPresentationContext(uid, syntaxes, id, 0);
    }
    pdu.AddUserDataItem(0x51, DWORD{16384});
}

void EncodeRequest(benchmark::State& state)
{
    CDcmProtocolDataUnit pdu;
    FillRequest(pdu);
    for ([[maybe_unused]] auto iteration : state)
    {
        pdu.Create();
        benchmark::DoNotOptimize(pdu.PduLength());
    }
}

void DecodeRequest(benchmark::State& state)
{
    CDcmProtocolDataUnit pdu;
    FillRequest(pdu);
    pdu.Create();
    CByteArray bytes;
    pdu.PduField(bytes);
    for ([[maybe_unused]] auto iteration : state)
    {
        CDcmProtocolDataUnit received;
        received.Create(bytes);
        benchmark::DoNotOptimize(received.FindPresentationContextID("1.2.840.10008.5.1.4.1.1.255"));
    }
    state.SetBytesProcessed(state.iterations() * bytes.GetSize());
}

/// Empty user data items: twice as many must take twice the time.
void DecodeItems(benchmark::State& state)
{
    CByteArray bytes;
    bytes.SetSize(74);
    bytes[0] = Varnotix::PDU_ASSOCIATE_RQ;
    for (std::int64_t i = 0; i < state.range(0); ++i)
    {
        for (const int byte : {0x50, 0x00, 0x00, 0x04, 0x51, 0x00, 0x00, 0x00})
        {
            bytes.Add(static_cast<BYTE>(byte));
        }
    }
    for ([[maybe_unused]] auto iteration : state)
    {
        CDcmProtocolDataUnit received;
        received.Create(bytes);
        benchmark::DoNotOptimize(received.PduLength());
    }
}

} // namespace

BENCHMARK(EncodeRequest);
BENCHMARK(DecodeRequest);
BENCHMARK(DecodeItems)->Arg(20000)->Arg(40000);
