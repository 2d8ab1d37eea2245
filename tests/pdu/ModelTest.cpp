#include "GoldenPdus.h"

#include <gtest/gtest.h>

TEST(PduModelTest, LookupsAnswerWithTheFirstMatch)
{
    CDcmProtocolDataUnit pdu;
    pdu.AddPresentationContext("1.2.A", Texts({"1"}), 1, 3);
    pdu.AddPresentationContext("1.2.b", Texts({"2"}), 3, 0);
    pdu.AddPresentationContext("1.2.a", Texts({"3"}), 3, 4);

    ASSERT_TRUE(pdu.FindPresentationContext(3) != nullptr && pdu.FindPresentationContext("1.2.a") != nullptr);
    EXPECT_EQ(pdu.FindPresentationContext(3)->AbstractSyntax(), "1.2.b");
    EXPECT_EQ(pdu.FindPresentationContext("1.2.a")->ContextID(), 1) << "case is ignored";
    EXPECT_EQ(pdu.FindPresentationContextID("1.2.B"), 3);
    EXPECT_TRUE(pdu.FindPresentationContext(5) == nullptr && pdu.FindPresentationContext("1.2") == nullptr);
    EXPECT_EQ(pdu.FindPresentationContextID("1.2"), -1);
    EXPECT_EQ(pdu.GetContextIDResult(1), 3);
    EXPECT_EQ(pdu.GetContextIDResult(5), -1);
    EXPECT_TRUE(!pdu.IsValidContextID(1) && pdu.IsValidContextID(3) && !pdu.IsValidContextID(5));
}

TEST(PduModelTest, CopiesHaveItemsOfTheirOwn)
{
    CDcmProtocolDataUnit assigned;
    assigned.AddUserDataItem(0x55, CString("old"));
    assigned.AddPresentationDataValue(CByteArray(), 1, 0);
    std::vector<std::string> expected;
    {
        CDcmProtocolDataUnit original;
        BuildRequest(original);
        original.AddPresentationDataValue(TextBytes("data"), 1, 2);
        original.Result(1);
        original.Create();
        expected = DumpOf(original);
        CDcmProtocolDataUnit copy(original);
        assigned = copy;
        assigned = *&assigned;
        copy.FindPresentationContext(3)->AbstractSyntax("changed");
        EXPECT_EQ(DumpOf(original), expected);
    }
    EXPECT_EQ(DumpOf(assigned), expected);
    EXPECT_EQ(FieldOf(assigned), RequestBytes());
}

TEST(PduModelTest, TheDumpTellsTextFromNumbersByOneBlank)
{
    CDcmProtocolDataUnit pdu;
    pdu.PduType(0x1A);
    pdu.AddApplicationContextItem("1.2");
    pdu.AddApplicationContextItem("1.3");
    pdu.AddPresentationContext("1.4", CStringArray(), 1, 3);
    pdu.AddUserDataItem(0x52, CString("1.2.3"));
    pdu.AddUserDataItem(0x51, Bytes({0x00, 0x40}));
    pdu.AddUserDataItem(0x55, CString());
    pdu.AddUserDataItem(0x56, TextBytes(" ~"));
    pdu.AddUserDataItem(0x57, TextBytes("a\x7F"));
    pdu.AddUserDataItem(0x58, TextBytes("\xE9"));
    CStringArray lines = Texts({"kept"});
    pdu.Export(lines);
    EXPECT_EQ(lines.GetAt(0), "kept");
    EXPECT_EQ(lines.GetAt(1), "PDU Type [1a]");
    const std::vector<std::string> dump = DumpOf(pdu);
    EXPECT_EQ(std::vector<std::string>(dump.begin() + 8, dump.end()),
              (std::vector<std::string>{"PCI [(1.4) () (1) (3)]", "ACI [1.2,1.3,]", "UDI [(52h)  (1.2.3)]",
                                        "UDI [(51h) (0,64,)]", "UDI [(55h)  ()]", "UDI [(56h)  ( ~)]",
                                        "UDI [(57h) (97,127,)]", "UDI [(58h) (233,)]"}));
}
