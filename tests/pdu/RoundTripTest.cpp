#include "GoldenPdus.h"

#include <gtest/gtest.h>

namespace
{

/// What a new object writes that holds what was decoded from the bytes. Numbers, titles and items have no other way
/// into a new object than the accessors.
CByteArray Rewritten(const CByteArray& bytes)
{
    CDcmProtocolDataUnit read;
    read.Create(bytes);
    CDcmProtocolDataUnit made;
    made.PduType(read.PduType());
    made.ProtocolVersion(read.ProtocolVersion());
    made.Result(read.Result());
    made.Source(read.Source());
    made.Reason(read.Reason());
    made.CalledAE(read.CalledAE());
    made.CallingAE(read.CallingAE());
    CStringArray names;
    read.ApplicationContextItems(names);
    for (const CString& name : names)
    {
        made.AddApplicationContextItem(name);
    }
    CObArray items;
    read.PresentationContextItems(items);
    for (const CObject* item : items)
    {
        const auto* context = static_cast<const CPresentationContext*>(item);
        made.AddPresentationContext(context, context->ContextID(), context->Result());
    }
    read.UserDataItems(items);
    for (const CObject* item : items)
    {
        const auto* data = static_cast<const CDcmUserData*>(item);
        made.AddUserDataItem(data->Type(), data->Data());
    }
    read.PresentationDataItems(items);
    for (const CObject* item : items)
    {
        const auto* value = static_cast<const CPresentationDataValue*>(item);
        made.AddPresentationDataValue(value->Data(), value->ContextID(), value->MessageControl());
    }
    return Encoded(made);
}

CByteArray Request(const CByteArray& items)
{
    return Join({Bytes({1, 0, 0, 0, 0, 68 + items.GetSize()}), Zeros(68), items});
}

const CByteArray kNoUserData = Bytes({0x50, 0, 0, 0});

} // namespace

TEST(PduRoundTripTest, GoldenPdusAreWrittenAsTheyWereRead)
{
    for (const CByteArray& golden : AllGoldenPdus())
    {
        EXPECT_EQ(Numbers(Rewritten(golden)), Numbers(golden));
        CDcmProtocolDataUnit same;
        same.Create(golden);
        EXPECT_EQ(Numbers(Encoded(same)), Numbers(golden)) << "by the object that read it";
    }
}

TEST(PduRoundTripTest, PaddedTitlesAndUidsKeepTheirPadding)
{
    CByteArray bytes = Request(Join({Bytes({0x10, 0, 0, 4, '1', '.', '2', 0}), kNoUserData}));
    const std::string padded = "AE              ";
    std::copy(padded.begin(), padded.end(), bytes.begin() + 10);
    EXPECT_EQ(Numbers(Rewritten(bytes)), Numbers(bytes));
}

TEST(PduRoundTripTest, WhatNoFieldHoldsIsWrittenInItsOneForm)
{
    const CByteArray name = Bytes({0x10, 0, 0, 1, 'n'});
    const CByteArray context = Bytes({0x20, 0, 0, 9, 1, 0, 0, 0, 0x30, 0, 0, 1, 'a'});
    struct SCase
    {
        const char* reason;
        CByteArray read;
        CByteArray written;
    };
    const SCase cases[] = {
        {"reserved bytes of items are not kept", Request(Join({Bytes({0x10, 0xEE, 0, 1, 'n'}), kNoUserData})),
         Request(Join({name, kNoUserData}))},
        {"items are written in one order", Request(Join({kNoUserData, context, name})),
         Request(Join({name, context, kNoUserData}))},
        {"a user information item is always written", Request(name), Request(Join({name, kNoUserData}))},
        {"there is one user information item", Request(Join({kNoUserData, kNoUserData})), Request(kNoUserData)},
        {"unknown items are not kept", Request(Join({Bytes({0x77, 0, 0, 1, 0xEE}), kNoUserData})),
         Request(kNoUserData)},
        {"a request's result byte is reserved",
         Request(Join({Bytes({0x20, 0, 0, 9, 1, 0, 7, 0, 0x30, 0, 0, 1, 'a'}), kNoUserData})),
         Request(Join({context, kNoUserData}))},
        {"a request's context has an abstract syntax", Request(Join({Bytes({0x20, 0, 0, 4, 1, 0, 0, 0}), kNoUserData})),
         Request(Join({Bytes({0x20, 0, 0, 8, 1, 0, 0, 0, 0x30, 0, 0, 0}), kNoUserData}))},
        {"the abstract syntax goes first",
         Request(Join({Bytes({0x20, 0, 0, 13, 1, 0, 0, 0, 0x40, 0, 0, 0, 0x30, 0, 0, 1, 'a'}), kNoUserData})),
         Request(Join({Bytes({0x20, 0, 0, 13, 1, 0, 0, 0, 0x30, 0, 0, 1, 'a', 0x40, 0, 0, 0}), kNoUserData}))},
        {"short PDUs have ten bytes", Bytes({5, 0, 0, 0, 0, 5, 0, 0, 0, 0, 0}), ReleaseBytes(5)},
        {"a data value has two bytes at least", Bytes({4, 0, 0, 0, 0, 6, 0, 0, 0, 1, 9, 8}),
         Bytes({4, 0, 0, 0, 0, 6, 0, 0, 0, 2, 9, 8})},
        {"what is no whole data value is not kept", Bytes({4, 0, 0, 0, 0, 9, 0, 0, 0, 2, 9, 8, 0, 0, 0}),
         Bytes({4, 0, 0, 0, 0, 6, 0, 0, 0, 2, 9, 8})},
    };
    for (const SCase& test : cases)
    {
        EXPECT_EQ(Numbers(Rewritten(test.read)), Numbers(test.written)) << test.reason;
        EXPECT_EQ(Numbers(Rewritten(test.written)), Numbers(test.written)) << test.reason;
    }
}

TEST(PduRoundTripTest, AnAcceptsAbstractSyntaxAndLongUserDataAreLost)
{
    const CByteArray accept = Join(
        {Bytes({2, 0, 0, 0, 0, 85}), Zeros(68), Bytes({0x21, 0, 0, 9, 1, 0, 0, 0, 0x30, 0, 0, 1, 'a'}), kNoUserData});
    EXPECT_EQ(Numbers(Rewritten(accept)),
              Numbers(Join({Bytes({2, 0, 0, 0, 0, 80}), Zeros(68), Bytes({0x21, 0, 0, 4, 1, 0, 0, 0}), kNoUserData})));
    const CByteArray longItem = Join(
        {Bytes({1, 0, 0, 0, 0x01, 0x4C}), Zeros(68), Bytes({0x50, 0, 0x01, 0x04, 0x58, 0, 0x01, 0x00}), Zeros(256)});
    EXPECT_EQ(Numbers(Rewritten(longItem)),
              Numbers(Join({Bytes({1, 0, 0, 0, 0x01, 0x4B}), Zeros(68), Bytes({0x50, 0, 0x01, 0x03, 0x58, 0, 0, 0xFF}),
                            Zeros(255)})));
}
