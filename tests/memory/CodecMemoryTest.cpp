// Memory that runs out while PDUs and run length encoded frames are read and written.

#include "GoldenPdus.h"
#include "RleFrames.h"
#include "Starvation.h"

#include <memory>

namespace
{

using PduPointer = std::unique_ptr<CDcmProtocolDataUnit>;

PduPointer MakeRequest()
{
    auto pdu = std::make_unique<CDcmProtocolDataUnit>();
    BuildRequest(*pdu);
    pdu->AddUserDataItem(0x52, CString("1.2.3.4.5.6.7.8.9.10.11"));
    return pdu;
}

} // namespace

using StarvedPdu = Starved;
using StarvedRle = Starved;

TEST_F(StarvedPdu, DecodesEncodesAndCopiesAgain)
{
    const CByteArray request = Encoded(*MakeRequest());
    AtEveryRequest([] { return std::make_unique<CDcmProtocolDataUnit>(); },
                   [&request](const PduPointer& pdu) { pdu->Create(request); },
                   [&request](const PduPointer& pdu)
                   {
                       pdu->Create(request);
                       EXPECT_TRUE(Encoded(*pdu) == request);
                   });
    AtEveryRequest(
        MakeRequest,
        [](const PduPointer& pdu)
        {
            pdu->Create();
            const CDcmProtocolDataUnit copy(*pdu);
        },
        [&request](const PduPointer& pdu) { EXPECT_TRUE(Encoded(*pdu) == request); });
    // The decoding alone throws nothing: it stops.
    for (const CByteArray& bytes : {request, DataBytes()})
    {
        AtEveryRequest([&bytes] { return std::make_unique<CDcmProtocolDataUnit>(bytes); },
                       [](const PduPointer& pdu) { EXPECT_NO_THROW(pdu->DecodeProtocol()); },
                       [&bytes](const PduPointer& pdu) { EXPECT_EQ(pdu->PduType(), bytes[0]); });
    }
}

TEST_F(StarvedPdu, DropsAnItemWithoutMemoryAndKeepsTheRest)
{
    const PduPointer pdu = MakeRequest();
    const std::vector<std::string> before = DumpOf(*pdu);
    const CString name('n', 100);
    const CStringArray syntaxes = Texts({"1.2.840.10008.1.2.4.100.99"});
    const CByteArray data = Zeros(100);
    EXPECT_TRUE(RunsOut(0, ERefuse::AllAfter,
                        [&]
                        {
                            pdu->AddApplicationContextItem(name);
                            pdu->AddPresentationContext(name, syntaxes, 1, 0);
                            pdu->AddPresentationDataValue(data, 1, 0);
                            pdu->AddUserDataItem(1, data);
                            pdu->AddUserDataItem(1, name);
                            pdu->AddUserDataItem(1, DWORD{1});
                        }));
    EXPECT_EQ(DumpOf(*pdu), before);
}

TEST_F(StarvedPdu, AsksForMemoryInProportionToItsBytes)
{
    constexpr int kCount = 16000;
    // Sub-items that each claim 65,535 bytes, and the smallest items of each kind: the most objects for their bytes.
    const CByteArray claims = Repeated(Bytes({0x51, 0, 0xFF, 0xFF}), kCount);
    const CByteArray fixed = Join({Bytes({1}), Zeros(73)});
    const CByteArray data = Bytes({4, 0, 0, 0, 0, 0});
    for (const CByteArray& bytes : {Join({fixed, Bytes({0x50, 0, 0xFF, 0xFF}), claims}),
                                    Join({fixed, Bytes({0x50, 0, 0xFA, 0}), Repeated(Bytes({0x51, 0, 0, 0}), kCount)}),
                                    Join({fixed, Bytes({0x20, 0, 0xFF, 0xFF, 1, 0, 0, 0}), claims}),
                                    Join({fixed, Repeated(Bytes({0x20, 0, 0, 0, 1, 0, 0, 0}), kCount)}),
                                    Join({data, Zeros(4 * kCount)}), Join({data, claims})})
    {
        CDcmProtocolDataUnit pdu(bytes);
        TakeRequests();
        pdu.DecodeProtocol();
        EXPECT_LE(TakeRequests().total, static_cast<std::size_t>(bytes.GetSize()) * 64);
    }
}

TEST_F(StarvedRle, KeepsItsOutputAndTellsOfMemoryAlone)
{
    CDcmImagePixelModule image = Image(8, 8, 8, "RGB");
    CByteArray pixels;
    for (int i = 0; i < 3 * 8 * 8; ++i)
    {
        pixels.Add(static_cast<BYTE>(i / 20));
    }
    CByteArray encoded(pixels);
    image.DcmRleEncode(encoded);

    // A caller of the codec has CMemoryException to catch, and nothing else.
    const auto orOutOfMemory = [](const auto& action)
    {
        try
        {
            action();
        }
        catch (const CMemoryException&)
        {
        }
    };
    AtEveryRequest([&] { return pixels; },
                   [&](CByteArray& bytes) { EXPECT_NO_THROW(orOutOfMemory([&] { image.DcmRleEncode(bytes); })); },
                   [&](const CByteArray& bytes) { EXPECT_TRUE(bytes == pixels || bytes == encoded); });
    CByteArray decoded;
    image.DcmRleDecode(encoded, decoded);
    AtEveryRequest([] { return CByteArray(); },
                   [&](CByteArray& bytes)
                   { EXPECT_NO_THROW(orOutOfMemory([&] { image.DcmRleDecode(encoded, bytes); })); },
                   [&](const CByteArray& bytes) { EXPECT_TRUE(bytes.IsEmpty() || bytes == decoded); });
}
