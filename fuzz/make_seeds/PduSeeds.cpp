// The units that the tests spell out, and those that hold lengths which do not fit.

#include "GoldenPdus.h"
#include "Seeds.h"

void MakePduSeeds()
{
    const auto put = [](const char* name, const CByteArray& bytes) { PutSeed("pdu", name, bytes); };
    put("associate_rq", RequestBytes());
    put("associate_ac", AcceptBytes());
    put("associate_rj", RejectBytes());
    put("data", DataBytes());
    put("release_rq", ReleaseBytes(Varnotix::PDU_RELEASE_RQ));
    put("release_rp", ReleaseBytes(Varnotix::PDU_RELEASE_RP));
    put("abort", AbortBytes());
    put("unknown_type", ReleaseBytes(8));
    const CByteArray fixed = Join({Bytes({1}), Zeros(73)});
    put("unknown_items", Join({fixed, Bytes({0x77, 0, 0, 1, 0xEE, 0x10, 0, 0, 1, 'n', 0x50, 0, 0, 0})}));
    put("long_items", Join({fixed, Bytes({0x20, 0, 0xFF, 0xFF, 1, 0, 0, 0, 0x30, 0, 0xFF, 0xFF})}));
    put("many_values", Join({Bytes({4, 0, 0, 0, 0, 0}), Zeros(40)}));
}
