#include "GoldenPdus.h"

#include <gtest/gtest.h>

TEST(PduEncodeTest, AnAssociationRequestIsWrittenAsListed)
{
    CDcmProtocolDataUnit pdu;
    BuildRequest(pdu);
    EXPECT_EQ(Numbers(Encoded(pdu)), Numbers(RequestBytes()));
    EXPECT_EQ(pdu.PduLength(), 120);
    EXPECT_EQ(Numbers(Encoded(pdu)), Numbers(RequestBytes())) << "encoding again";
}

TEST(PduEncodeTest, AnAcceptCarriesResultsAndEveryTransferSyntaxButNoAbstractSyntax)
{
    CDcmProtocolDataUnit pdu;
    BuildAccept(pdu);
    EXPECT_EQ(Numbers(Encoded(pdu)), Numbers(AcceptBytes()));
    EXPECT_EQ(pdu.PduLength(), 107);
}

TEST(PduEncodeTest, ShortPdusHaveTenBytesAndLeaveTheLengthOfTheObjectAlone)
{
    for (const CByteArray& golden : {RejectBytes(), ReleaseBytes(5), ReleaseBytes(6), AbortBytes()})
    {
        CDcmProtocolDataUnit pdu;
        pdu.PduType(golden[0]);
        pdu.Result(0x101); // The low byte is written.
        pdu.Source(0x202);
        pdu.Reason(golden[9]);
        EXPECT_EQ(Numbers(Encoded(pdu)), Numbers(golden));
        EXPECT_EQ(pdu.PduLength(), 0);
    }
}

TEST(PduEncodeTest, DataValuesFollowOneAnother)
{
    CDcmProtocolDataUnit pdu;
    BuildData(pdu);
    EXPECT_EQ(Numbers(Encoded(pdu)), Numbers(DataBytes()));
    EXPECT_EQ(pdu.PduLength(), 22);
}

TEST(PduEncodeTest, TheUserInformationItemIsWrittenEvenWhenThereIsNothingInIt)
{
    CDcmProtocolDataUnit pdu;
    pdu.PduType(PDU_ASSOCIATE_RQ);
    const CByteArray bytes = Encoded(pdu);
    EXPECT_EQ(Numbers(bytes), Numbers(Join({Bytes({1, 0, 0, 0, 0, 72}), Zeros(68), Bytes({0x50, 0, 0, 0})})));
}

TEST(PduEncodeTest, BothNamesOfASharedEncoderWriteTheSame)
{
    CPdu request;
    BuildRequest(request);
    request.CreateAAceptProtocol();
    EXPECT_EQ(Numbers(FieldOf(request)), Numbers(RequestBytes())) << "the PDU type decides, not the name";
    CPdu accept;
    BuildAccept(accept);
    accept.CreateARequestProtocol();
    EXPECT_EQ(Numbers(FieldOf(accept)), Numbers(AcceptBytes()));

    CPdu release;
    release.PduType(PDU_RELEASE_RQ);
    release.CreateReleaseReplyField();
    EXPECT_EQ(Numbers(FieldOf(release)), Numbers(ReleaseBytes(5)));
    release.PduType(PDU_RELEASE_RP);
    release.CreateReleaseRequestField();
    EXPECT_EQ(Numbers(FieldOf(release)), Numbers(ReleaseBytes(6)));
}

TEST(PduEncodeTest, BytesThatNoFieldNamesKeepWhatTheFieldHeld)
{
    CByteArray old;
    old.SetSize(100);
    std::fill(old.begin(), old.end(), BYTE{0xEE});

    CDcmProtocolDataUnit release(old);
    release.PduType(PDU_RELEASE_RQ);
    EXPECT_EQ(Numbers(Encoded(release)), Numbers(Bytes({5, 0xEE, 0, 0, 0, 4, 0xEE, 0xEE, 0xEE, 0xEE})));

    CDcmProtocolDataUnit abort(old);
    abort.PduType(PDU_ABORT);
    EXPECT_EQ(Numbers(Encoded(abort)), Numbers(Bytes({7, 0xEE, 0, 0, 0, 4, 0xEE, 0xEE, 0, 0})));

    CDcmProtocolDataUnit reject(old);
    reject.PduType(PDU_ASSOCIATE_RJ);
    EXPECT_EQ(Numbers(Encoded(reject)), Numbers(Bytes({3, 0xEE, 0, 0, 0, 4, 0xEE, 0, 0, 0})));

    CDcmProtocolDataUnit data(old);
    data.PduType(PDU_DATA_TF);
    EXPECT_EQ(Numbers(Encoded(data)), Numbers(Bytes({4, 0xEE, 0, 0, 0, 0})));

    CDcmProtocolDataUnit request(old);
    request.PduType(PDU_ASSOCIATE_RQ);
    request.CalledAE("B");
    const CByteArray bytes = Encoded(request);
    ASSERT_EQ(bytes.GetSize(), 78);
    EXPECT_EQ(bytes[1], 0xEE);
    EXPECT_EQ(bytes[8], 0xEE);
    EXPECT_EQ(bytes[10], 'B');
    EXPECT_EQ(bytes[11], 0xEE) << "the rest of a title";
    EXPECT_EQ(bytes[26], 0xEE) << "an empty title";
    EXPECT_EQ(bytes[73], 0xEE);
}

TEST(PduEncodeTest, AnUnknownTypeEncodesNothing)
{
    for (const int type : {-1, 0, 8, 0x101})
    {
        CDcmProtocolDataUnit pdu(TextBytes("as it was"));
        pdu.PduType(type);
        EXPECT_EQ(Numbers(Encoded(pdu)), Numbers(TextBytes("as it was"))) << type;
    }
}

TEST(PduEncodeTest, AnOverLongTitleRunsOnWithAZeroForItsSeventeenthCharacter)
{
    CDcmProtocolDataUnit pdu;
    pdu.PduType(PDU_ASSOCIATE_RQ);
    pdu.CalledAE("ABCDEFGHIJKLMNOPQRST");
    pdu.CallingAE("x");
    CByteArray bytes = Encoded(pdu);
    EXPECT_EQ(std::string(bytes.begin() + 10, bytes.begin() + 31), std::string("ABCDEFGHIJKLMNOPxRST\0", 21))
        << "the calling title is written later, over the zero";
    EXPECT_EQ(pdu.CalledAE(), "ABCDEFGHIJKLMNOP");

    CDcmProtocolDataUnit other;
    other.PduType(PDU_ASSOCIATE_RQ);
    other.CallingAE("abcdefghijklmnopqrst");
    bytes = Encoded(other);
    EXPECT_EQ(std::string(bytes.begin() + 26, bytes.begin() + 47), std::string("abcdefghijklmnop\0rst\0", 21));
    EXPECT_EQ(other.CallingAE(), "abcdefghijklmnop");
}

TEST(PduEncodeTest, ATitleWithoutEndStaysInsideTheFixedPart)
{
    CDcmProtocolDataUnit pdu;
    pdu.PduType(PDU_ASSOCIATE_AC);
    pdu.CalledAE(CString('B', 5000));
    pdu.CallingAE(CString('A', 5000));
    const CByteArray bytes = Encoded(pdu);
    ASSERT_EQ(bytes.GetSize(), 78);
    EXPECT_EQ(std::string(bytes.begin() + 10, bytes.begin() + 26), std::string(16, 'B'));
    EXPECT_EQ(std::string(bytes.begin() + 26, bytes.begin() + 42), std::string(16, 'A'));
    EXPECT_EQ(bytes[42], 0);
    EXPECT_EQ(std::string(bytes.begin() + 43, bytes.begin() + 74), std::string(31, 'A'));
    EXPECT_EQ(bytes[74], 0x50);
    EXPECT_EQ(pdu.CalledAE().GetLength(), 16);
}

TEST(PduEncodeTest, SixteenCharactersAreNoOverLongTitle)
{
    CDcmProtocolDataUnit pdu;
    pdu.PduType(PDU_ASSOCIATE_RQ);
    pdu.CallingAE(CString('A', 16));
    const CByteArray bytes = Encoded(pdu);
    EXPECT_EQ(bytes[41], 'A');
    EXPECT_EQ(bytes[42], 0);
    EXPECT_EQ(pdu.CallingAE().GetLength(), 16);
}

TEST(PduEncodeTest, UserDataIsCutTo255BytesAndNumbersAreLittleEndian)
{
    CDcmProtocolDataUnit pdu;
    pdu.PduType(PDU_ASSOCIATE_RQ);
    CByteArray longData = Zeros(300);
    longData[254] = 7;
    longData[255] = 8;
    pdu.AddUserDataItem(0x58, longData);
    pdu.AddUserDataItem(0x55, CString('x', 256));
    pdu.AddUserDataItem(0x51, DWORD{0x04030201});
    CObArray items;
    pdu.UserDataItems(items);
    ASSERT_EQ(items.GetSize(), 3);
    EXPECT_EQ(static_cast<const CDcmUserData*>(items[0])->Data().GetSize(), 255);
    EXPECT_EQ(static_cast<const CDcmUserData*>(items[1])->Data().GetSize(), 255);

    const CByteArray bytes = Encoded(pdu);
    ASSERT_EQ(bytes.GetSize(), 74 + 4 + 259 + 259 + 8);
    EXPECT_EQ(bytes[74 + 4 + 3], 255);
    EXPECT_EQ(bytes[74 + 4 + 4 + 254], 7);
    EXPECT_EQ(bytes[74 + 4 + 259], 0x55) << "the next item follows the cut one";
    EXPECT_EQ(std::vector<int>(bytes.end() - 8, bytes.end()), (std::vector<int>{0x51, 0, 0, 4, 1, 2, 3, 4}));
}

TEST(PduEncodeTest, NumbersKeepTheirLowBits)
{
    CPdu pdu;
    CByteArray item;
    pdu.CreateItemField(0x110, Zeros(0x10002), item);
    EXPECT_EQ(item.GetSize(), 0x10006) << "the bytes are all there";
    EXPECT_EQ(std::vector<int>(item.begin(), item.begin() + 4), (std::vector<int>{0x10, 0, 0, 2}));

    pdu.CreatePresentationContextField(Bytes({9}), item, 0x103, 0);
    EXPECT_EQ(Numbers(item), (std::vector<int>{0x20, 0, 0, 5, 3, 0, 0, 0, 9}));

    pdu.CreateItemField(0x40, Texts({"1", "22"}), item);
    EXPECT_EQ(Numbers(item), (std::vector<int>{0x40, 0, 0, 1, '1', 0x40, 0, 0, 2, '2', '2'})) << "a fresh array";

    pdu.PduType(PDU_ASSOCIATE_RQ);
    pdu.ProtocolVersion(0x12345);
    const CByteArray bytes = Encoded(pdu);
    EXPECT_EQ(bytes[6], 0x23);
    EXPECT_EQ(bytes[7], 0x45);
}
