#include "GoldenPdus.h"

#include <gtest/gtest.h>

namespace
{

/// The fixed part of an association PDU with a length of 0, which bounds nothing, and the items after it.
CByteArray Association(const CByteArray& items, int type = Varnotix::PDU_ASSOCIATE_RQ)
{
    return Join({Bytes({type}), Zeros(73), items});
}

/// The lines of the dump after the eight scalar ones.
std::vector<std::string> ItemsOf(const CByteArray& bytes)
{
    CDcmProtocolDataUnit pdu;
    pdu.Create(bytes);
    const std::vector<std::string> lines = DumpOf(pdu);
    return {lines.begin() + 8, lines.end()};
}

using CLines = std::vector<std::string>;

} // namespace

TEST(PduDecodeTest, GoldenBytesBecomeFieldsAndItems)
{
    CDcmProtocolDataUnit pdu;
    pdu.Create(RequestBytes());
    EXPECT_EQ(DumpOf(pdu), (CLines{"PDU Type [1]", "PDU Length [120]", "Protocol Version [1]", "Called AE [B]",
                                   "Calling AE [A]", "Result [0]", "Source [0]", "Reason [0]",
                                   "PCI [(1.2.4) (1.5,1.6,) (3) (0)]", "ACI [1.2.3,]", "UDI [(51h) (0,64,0,0,)]"}));
    pdu.Create(AcceptBytes());
    EXPECT_EQ(DumpOf(pdu), (CLines{"PDU Type [2]", "PDU Length [107]", "Protocol Version [1]", "Called AE [B]",
                                   "Calling AE [A]", "Result [0]", "Source [0]", "Reason [0]",
                                   "PCI [() (1.5,1.6,) (3) (4)]", "ACI [1.2.3,]", "UDI [(55h)  ()]"}))
        << "the items of the request before it are gone";
    pdu.Create(RejectBytes());
    EXPECT_EQ(DumpOf(pdu), (CLines{"PDU Type [3]", "PDU Length [4]", "Protocol Version [1]", "Called AE [B]",
                                   "Calling AE [A]", "Result [1]", "Source [2]", "Reason [7]",
                                   "PCI [() (1.5,1.6,) (3) (4)]", "ACI [1.2.3,]", "UDI [(55h)  ()]"}));
    pdu.Create(AbortBytes());
    const CLines aborted = DumpOf(pdu);
    EXPECT_EQ(CLines(aborted.begin() + 5, aborted.begin() + 8), (CLines{"Result [1]", "Source [2]", "Reason [6]"}))
        << "an abort has no result";
    pdu.Create(ReleaseBytes(Varnotix::PDU_RELEASE_RP));
    EXPECT_EQ(pdu.PduType(), Varnotix::PDU_RELEASE_RP);
    EXPECT_EQ(ItemsOf(DataBytes()), (CLines{"ACI []", "PDV [(1) (3) (10)]", "PDV [(5) (0) (0)]"}));
}

TEST(PduDecodeTest, ASecondDataPduAppendsAndAnAssociationStartsAnew)
{
    CDcmProtocolDataUnit pdu;
    CObArray values;
    pdu.Create(DataBytes());
    pdu.Create(DataBytes());
    pdu.PresentationDataItems(values);
    ASSERT_EQ(values.GetSize(), 4);
    EXPECT_EQ(static_cast<const CPresentationDataValue*>(values[2])->Data(), TextBytes("0123456789"));
    pdu.Create(RequestBytes());
    pdu.PresentationDataItems(values);
    EXPECT_TRUE(values.IsEmpty());
}

TEST(PduDecodeTest, TheLengthMayExceedWhatFollowsTheHeaderBySix)
{
    CByteArray bytes = RejectBytes();
    for (const int length : {0, 8, 10, 11, 0x7F})
    {
        CDcmProtocolDataUnit pdu;
        bytes[5] = static_cast<BYTE>(length);
        pdu.Create(bytes);
        EXPECT_EQ(pdu.PduType(), Varnotix::PDU_ASSOCIATE_RJ);
        EXPECT_EQ(pdu.PduLength(), length);
        EXPECT_EQ(pdu.Reason(), length <= 10 ? 7 : 0) << length;
    }
    CDcmProtocolDataUnit negative;
    bytes[2] = 0xFF;
    negative.Create(bytes);
    EXPECT_LT(negative.PduLength(), 0) << "the field is a signed number, which no size is below";
    EXPECT_EQ(negative.Reason(), 7);

    // What is too short keeps the numbers of the PDU before it.
    for (CByteArray cut : {RejectBytes(), AbortBytes()})
    {
        CDcmProtocolDataUnit pdu;
        pdu.Create(RejectBytes());
        cut.SetSize(9);
        pdu.Create(cut);
        EXPECT_EQ(pdu.PduType(), cut[0]);
        EXPECT_EQ(pdu.Result() * 100 + pdu.Source() * 10 + pdu.Reason(), 127);
    }
}

TEST(PduDecodeTest, TitlesEndAtAZeroAndKeepTheirSpaces)
{
    CByteArray bytes = Association(CByteArray());
    const std::string called = "TITLE_OF        ";
    const std::string calling = std::string("AB\0CD", 5);
    std::copy(called.begin(), called.end(), bytes.begin() + 10);
    std::copy(calling.begin(), calling.end(), bytes.begin() + 26);
    bytes[6] = 0xAB;
    bytes[7] = 0xCD;
    CDcmProtocolDataUnit pdu;
    pdu.ProtocolVersion(0x120001);
    pdu.Create(bytes);
    EXPECT_EQ(pdu.CalledAE().View(), called);
    EXPECT_EQ(pdu.CallingAE().View(), "AB");
    EXPECT_EQ(pdu.ProtocolVersion(), 0x12ABCD) << "the low 16 bits are replaced";
}

TEST(PduDecodeTest, UnknownItemsAreScannedThroughAndUnknownSubItemsPassedOver)
{
    const CByteArray user = Bytes({0x50, 0, 0, 5, 0x52, 0, 0, 1, '1'});
    EXPECT_EQ(ItemsOf(Association(Join({Bytes({0x55, 0, 0, 2, 0xAA, 0xBB}), user}))),
              (CLines{"ACI []", "UDI [(52h)  (1)]"}));
    EXPECT_EQ(ItemsOf(Association(Join({Bytes({0x55, 0, 0, 2, 0x10, 0x00}), user}))), (CLines{"ACI []"}))
        << "the 10H inside is taken for an item of 5000H bytes";
    EXPECT_EQ(ItemsOf(Association(Join({Bytes({0x55, 0, 0, 5, 0x10, 0, 0, 1, 'x'}), user}))),
              (CLines{"ACI [x,]", "UDI [(52h)  (1)]"}))
        << "what looks like an item inside is read as one";
    // Contexts have two forms; sub-items of other types are passed over.
    const CByteArray subItems =
        Bytes({0x30, 0, 0, 1, 'a', 0x40, 0, 0, 1, 't', 0x99, 0, 0, 2, 'x', 'y', 0x30, 0, 0, 1, 'b', 0x40, 0, 0, 0});
    for (const int itemType : {0x20, 0x21})
    {
        const CByteArray item = Join({Bytes({itemType, 0xEE, 0, 29, 5, 0xEE, 2, 0xEE}), subItems});
        EXPECT_EQ(ItemsOf(Association(Join({item, Bytes({0x10, 0, 0, 1, 'n'})}))),
                  (CLines{"PCI [(b) (t,,) (5) (2)]", "ACI [n,]"}));
    }
    EXPECT_EQ(ItemsOf(Association(Bytes({0x20, 0, 0, 0, 5, 0, 1, 0, 0x10, 0, 0, 1, 'n'}))),
              (CLines{"PCI [() () (5) (1)]", "ACI [n,]"}))
        << "an item length below 4 leaves room for no sub-item";
}

TEST(PduDecodeTest, LengthsAreHeldToTheFieldAndABadOneKeepsWhatWasRead)
{
    const CByteArray name = Bytes({0x10, 0, 0, 1, 'n'});
    const CByteArray good = Bytes({0x50, 0, 0, 5, 0x52, 0, 0, 1, '1'});
    // The item says 9 bytes, the sub-item in it 4 where there is room for 1.
    CByteArray item = Bytes({0x20, 0, 0, 9, 5, 0, 0, 0, 0x40, 0, 0, 4, 'w', 'x', 'y', 'z'});
    EXPECT_EQ(ItemsOf(Association(Join({item, name}))), (CLines{"PCI [() (wxyz,) (5) (0)]", "ACI [n,]"}))
        << "the next item is looked for after the sub-item";
    item.SetSize(15);
    EXPECT_EQ(ItemsOf(Association(item)), (CLines{"PCI [() () (5) (0)]", "ACI []"}));
    EXPECT_EQ(ItemsOf(Association(Join({name, Bytes({0x10, 0, 1, 0}), good}))), (CLines{"ACI [n,]"}));
    EXPECT_EQ(ItemsOf(Association(Join({Bytes({0x20, 0, 0, 9, 5, 0, 0, 0, 0x40, 0, 1, 0}), name}))),
              (CLines{"PCI [() () (5) (0)]", "ACI []"}));
    EXPECT_EQ(ItemsOf(Association(Join({good, Bytes({0x50, 0, 0, 5, 0x52, 0, 1, 0}), name}))),
              (CLines{"ACI []", "UDI [(52h)  (1)]"}));
}

TEST(PduDecodeTest, ALongUserDataItemIsCutAndTheNextOneIsStillFound)
{
    CDcmProtocolDataUnit pdu;
    pdu.Create(Association(
        Join({Bytes({0x50, 0, 0x01, 0x35, 0x58, 0, 0x01, 0x2C}), Zeros(300), Bytes({0x55, 0, 0, 1, 'v'})})));
    CObArray items;
    pdu.UserDataItems(items);
    ASSERT_EQ(items.GetSize(), 2);
    EXPECT_EQ(static_cast<const CDcmUserData*>(items[0])->Data(), Zeros(255));
    EXPECT_EQ(static_cast<const CDcmUserData*>(items[1])->Data(), TextBytes("v"));
}

TEST(PduDecodeTest, DataValuesAreBoundedByTheFieldAlone)
{
    const CByteArray header = Bytes({4, 0, 0, 0, 0, 0});
    const CByteArray value = Bytes({0, 0, 0, 3, 1, 2, 0xAB});
    const CLines one = {"ACI []", "PDV [(1) (2) (1)]"};
    EXPECT_EQ(ItemsOf(Join({header, value})), one) << "the PDU length of 0 does not count";
    EXPECT_EQ(ItemsOf(Join({header, value, Bytes({0, 0, 0, 2, 1})})), one) << "five bytes are no item";
    EXPECT_EQ(ItemsOf(Join({header, value, Bytes({0, 0, 0, 3, 1, 0})})), one) << "one byte is missing";
    EXPECT_EQ(ItemsOf(Join({header, value, Bytes({0xFF, 0xFF, 0xFF, 0xFF, 1, 0})})), one);
    EXPECT_EQ(ItemsOf(Join({header, Bytes({0, 0, 0, 0}), value})),
              (CLines{"ACI []", "PDV [(0) (0) (0)]", "PDV [(1) (2) (1)]"}))
        << "a length of 0 moves on by its own four bytes";
}
