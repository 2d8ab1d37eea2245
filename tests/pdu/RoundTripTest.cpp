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
    for (const CByteArray& golden : {RequestBytes(), AcceptBytes(), RejectBytes(), DataBytes(), AbortBytes()})
    {
        EXPECT_EQ(Numbers(Rewritten(golden)), Numbers(golden));
    }
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
        {"padding is a part of a name", Request(Join({Bytes({0x10, 0, 0, 4, '1', '.', '2', 0}), kNoUserData})),
         Request(Join({Bytes({0x10, 0, 0, 4, '1', '.', '2', 0}), kNoUserData}))},
        {"an accept's context has no abstract syntax",
         Join({Bytes({2, 0, 0, 0, 0, 85}), Zeros(68), Bytes({0x21, 0, 0, 9, 1, 0, 0, 0, 0x30, 0, 0, 1, 'a'}),
               kNoUserData}),
         Join({Bytes({2, 0, 0, 0, 0, 80}), Zeros(68), Bytes({0x21, 0, 0, 4, 1, 0, 0, 0}), kNoUserData})},
        {"items are written in one order", Request(Join({kNoUserData, context, name})),
         Request(Join({name, context, kNoUserData}))},
        {"a user information item is always written", Request(name), Request(Join({name, kNoUserData}))},
        {"a request's result byte is reserved",
         Request(Join({Bytes({0x20, 0, 0, 9, 1, 0, 7, 0, 0x30, 0, 0, 1, 'a'}), kNoUserData})),
         Request(Join({context, kNoUserData}))},
        {"a request's context has an abstract syntax", Request(Join({Bytes({0x20, 0, 0, 4, 1, 0, 0, 0}), kNoUserData})),
         Request(Join({Bytes({0x20, 0, 0, 8, 1, 0, 0, 0, 0x30, 0, 0, 0}), kNoUserData}))},
        {"the abstract syntax goes first",
         Request(Join({Bytes({0x20, 0, 0, 13, 1, 0, 0, 0, 0x40, 0, 0, 0, 0x30, 0, 0, 1, 'a'}), kNoUserData})),
         Request(Join({Bytes({0x20, 0, 0, 13, 1, 0, 0, 0, 0x30, 0, 0, 1, 'a', 0x40, 0, 0, 0}), kNoUserData}))},
        {"a data value has two bytes at least", Bytes({4, 0, 0, 0, 0, 6, 0, 0, 0, 1, 9, 8}),
         Bytes({4, 0, 0, 0, 0, 6, 0, 0, 0, 2, 9, 8})},
    };
    for (const SCase& test : cases)
    {
        EXPECT_EQ(Numbers(Rewritten(test.read)), Numbers(test.written)) << test.reason;
    }
}
