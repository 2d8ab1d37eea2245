// Memory that runs out while PDUs and run length encoded frames are read and written.

#include "GoldenPdus.h"
#include "Starvation.h"
#include "Varnotix/pixel/DcmImagePixelModule.h"

#include <memory>

namespace
{

std::unique_ptr<CDcmProtocolDataUnit> MakeRequest()
{
    auto pdu = std::make_unique<CDcmProtocolDataUnit>();
    CStringArray syntaxes;
    syntaxes.Add("1.2.840.10008.1.2");
    pdu->PduType(PDU_ASSOCIATE_RQ);
    pdu->CalledAE("ARCHIVE");
    pdu->CallingAE("SCANNER");
    pdu->AddApplicationContextItem("1.2.840.10008.3.1.1.1");
    pdu->AddPresentationContext("1.2.840.10008.5.1.4.1.1.2", syntaxes, 1, 0);
    pdu->AddUserDataItem(0x52, CString("1.2.3.4.5.6.7.8.9.10.11"));
    return pdu;
}

} // namespace

using StarvedPdu = Starved;
using StarvedRle = Starved;

TEST_F(StarvedPdu, DecodesAgain)
{
    const CByteArray request = Encoded(*MakeRequest());
    AtEveryRequest([] { return std::make_unique<CDcmProtocolDataUnit>(); },
                   [&request](const std::unique_ptr<CDcmProtocolDataUnit>& pdu) { pdu->Create(request); },
                   [&request](const std::unique_ptr<CDcmProtocolDataUnit>& pdu)
                   {
                       pdu->Create(request);
                       EXPECT_TRUE(Encoded(*pdu) == request);
                   });
}

TEST_F(StarvedPdu, EncodesAndCopiesAgain)
{
    const CByteArray request = Encoded(*MakeRequest());
    AtEveryRequest(
        MakeRequest,
        [](const std::unique_ptr<CDcmProtocolDataUnit>& pdu)
        {
            pdu->Create();
            const CDcmProtocolDataUnit copy(*pdu);
        },
        [&request](const std::unique_ptr<CDcmProtocolDataUnit>& pdu) { EXPECT_TRUE(Encoded(*pdu) == request); });
}

TEST_F(StarvedRle, KeepsItsOutputAndTellsOfMemoryAlone)
{
    constexpr int kSide = 8;
    CDcmImagePixelModule image;
    image.Rows(kSide);
    image.Columns(kSide);
    image.BitsAllocated(8);
    image.PhotoMetricInterpretation("RGB");
    CByteArray pixels;
    for (int i = 0; i < 3 * kSide * kSide; ++i)
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
