#include "GoldenPdus.h"

#include <gtest/gtest.h>

TEST(PduEncodeTest, FieldsAndItemsBecomeGoldenBytes)
{
    CDcmProtocolDataUnit accept;
    accept.PduType(Varnotix::PDU_ASSOCIATE_AC);
    accept.ProtocolVersion(1);
    accept.CalledAE("B");
    accept.CallingAE("A");
    accept.AddApplicationContextItem("1.2.3");
    accept.AddPresentationContext("not written", Texts({"1.5", "1.6"}), 3, 4);
    accept.AddUserDataItem(0x55, CByteArray());
    EXPECT_EQ(Numbers(Encoded(accept)), Numbers(AcceptBytes()));
    EXPECT_EQ(accept.PduLength(), 107);

    CDcmProtocolDataUnit data;
    data.PduType(Varnotix::PDU_DATA_TF);
    data.AddPresentationDataValue(TextBytes("0123456789"), 1, 3);
    data.AddPresentationDataValue(CByteArray(), 5, 0);
    EXPECT_EQ(Numbers(Encoded(data)), Numbers(DataBytes()));
    EXPECT_EQ(data.PduLength(), 22);
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

TEST(PduEncodeTest, BytesThatNoFieldNamesKeepWhatTheFieldHeld)
{
    CByteArray old = Zeros(100);
    std::fill(old.begin(), old.end(), BYTE{0xEE});
    for (const CByteArray& bytes :
         {Bytes({5, 0xEE, 0, 0, 0, 4, 0xEE, 0xEE, 0xEE, 0xEE}), Bytes({7, 0xEE, 0, 0, 0, 4, 0xEE, 0xEE, 0, 0}),
          Bytes({3, 0xEE, 0, 0, 0, 4, 0xEE, 0, 0, 0}), Bytes({4, 0xEE, 0, 0, 0, 0})})
    {
        CDcmProtocolDataUnit pdu(old);
        pdu.PduType(bytes[0]);
        EXPECT_EQ(Numbers(Encoded(pdu)), Numbers(bytes));
    }
    CDcmProtocolDataUnit request(old);
    request.PduType(Varnotix::PDU_ASSOCIATE_RQ);
    request.CalledAE("B");
    const CByteArray bytes = Encoded(request);
    ASSERT_EQ(bytes.GetSize(), 78);
    EXPECT_EQ(bytes[1], 0xEE);
    EXPECT_EQ(bytes[8], 0xEE);
    EXPECT_EQ(bytes[10], 'B');
    EXPECT_EQ(bytes[11], 0xEE) << "the rest of a title";
    EXPECT_EQ(bytes[26], 0xEE) << "an empty title";
    EXPECT_EQ(bytes[73], 0xEE);
    // An unknown type encodes nothing.
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
    pdu.PduType(Varnotix::PDU_ASSOCIATE_RQ);
    pdu.CalledAE("ABCDEFGHIJKLMNOPQRST");
    pdu.CallingAE("x");
    CByteArray bytes = Encoded(pdu);
    EXPECT_EQ(std::string(bytes.begin() + 10, bytes.begin() + 31), std::string("ABCDEFGHIJKLMNOPxRST\0", 21))
        << "the calling title is written later, over the zero";
    EXPECT_EQ(pdu.CalledAE(), "ABCDEFGHIJKLMNOP");

    CDcmProtocolDataUnit other;
    other.PduType(Varnotix::PDU_ASSOCIATE_RQ);
    other.CallingAE("abcdefghijklmnopqrst");
    bytes = Encoded(other);
    EXPECT_EQ(std::string(bytes.begin() + 26, bytes.begin() + 47), std::string("abcdefghijklmnop\0rst\0", 21));
    EXPECT_EQ(other.CallingAE(), "abcdefghijklmnop");
}

TEST(PduEncodeTest, ATitleWithoutEndStaysInsideTheFixedPart)
{
    CDcmProtocolDataUnit pdu;
    pdu.PduType(Varnotix::PDU_ASSOCIATE_AC);
    pdu.CalledAE(CString('B', 5000));
    pdu.CallingAE(CString('A', 5000));
    const CByteArray bytes = Encoded(pdu);
    EXPECT_EQ(std::string(bytes.begin() + 10, bytes.end()),
              std::string(16, 'B') + std::string(16, 'A') + '\0' + std::string(31, 'A') + std::string("\x50\0\0\0", 4));
    EXPECT_EQ(pdu.CalledAE().GetLength(), 16);
}

TEST(PduEncodeTest, UserDataIsCutTo255BytesAndNumbersAreLittleEndian)
{
    CDcmProtocolDataUnit pdu;
    pdu.PduType(Varnotix::PDU_ASSOCIATE_RQ);
    CByteArray longData = Zeros(300);
    longData[254] = 7;
    longData[255] = 8;
    pdu.AddUserDataItem(0x58, longData);
    pdu.AddUserDataItem(0x55, CString('x', 256));
    pdu.AddUserDataItem(0x51, DWORD{0x04030201});
    const CByteArray bytes = Encoded(pdu);
    ASSERT_EQ(bytes.GetSize(), 74 + 4 + 259 + 259 + 8);
    EXPECT_EQ(bytes[74 + 4 + 4 + 254], 7);
    EXPECT_EQ(bytes[74 + 4 + 259], 0x55) << "the next item follows the cut one";
    EXPECT_EQ(std::vector<int>(bytes.end() - 8, bytes.end()), (std::vector<int>{0x51, 0, 0, 4, 1, 2, 3, 4}));
}
