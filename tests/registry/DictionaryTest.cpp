#include "Varnotix/registry/DcmRegistry.h"
#include "Varnotix/registry/InitDicomDLL.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

CDcmRegistry& Registry()
{
    return CDcmRegistry::Global();
}

} // namespace

TEST(InitDicomDll, LetsClassesBeFoundByNameFromThenOn)
{
    EXPECT_EQ(CRuntimeClass::FromName("CDcmRegistry"), nullptr);
    InitDicomDLL();
    InitDicomDLL();
    const std::unique_ptr<CObject> made(CRuntimeClass::CreateObject("CDcmRegistry"));
    EXPECT_NE(made, nullptr);
}

TEST(VrTable, CodesTextsAndLimitsAreFixed)
{
    EXPECT_STREQ(VrText(0), "AE");
    EXPECT_EQ(VrCode("DT"), 6);
    EXPECT_STREQ(VrText(18), "SQ");
    EXPECT_EQ(VrCode("UT"), 26);
    EXPECT_STREQ(VrText(VR_NONE), "NONE");
    for (const int code : {-1, 27, 29, 1000})
    {
        EXPECT_STREQ(VrText(code), "");
    }
    EXPECT_EQ(VrRow(VR_LT).maxLength, 10240U);
    EXPECT_EQ(VrRow(VR_UT).maxLength, 4294967294U);
    EXPECT_EQ(CDcmType(VR_AT).code, 2U);
}

TEST(VrTable, SpellingsForContextDependentVrsHaveOneCodeEach)
{
    EXPECT_EQ(VrCode("usss"), VR_US);
    EXPECT_EQ(VrCode("csob"), VR_OB);
    EXPECT_EQ(VrCode("USSSOW"), VR_OW);
    EXPECT_EQ(VrCode("ObOw"), VR_OB);
    EXPECT_EQ(VrCode("none"), VR_NONE);
    for (const char* text : {"", "P", "ZZ", "PNX", "usow", "\x10N", "0B"})
    {
        EXPECT_EQ(VrCode(text), VR_UNKNOWN) << text;
    }
}

TEST(Dictionary, IsFoundByTextsInAnyCaseAndWithBlanks)
{
    const CDcmEntry* entry = Registry().LookUpDictionary("0010", "0020");
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(Registry().LookUpDictionary(" 0010", "0020 \t"), entry);
    EXPECT_EQ(Registry().LookUpDictionary("7FE0", "0010"), Registry().LookUpDictionary("7fe0", "0010"));
    for (const char* unknown : {"", "0010002", "0010 0020", "001000200", "0010XXXX"})
    {
        EXPECT_EQ(Registry().LookUpKey(unknown), nullptr) << unknown;
    }
}

TEST(PrivateEntries, AreMadeForOddGroupsOnly)
{
    CDcmRegistry mine;
    EXPECT_EQ(mine.AddPrivateEntry(0x0008, 0x7771, "LO", 1), nullptr);
    EXPECT_EQ(mine.AddSharedPrivateEntry(0x0008, 0x7771, "LO", 1), nullptr);
    EXPECT_EQ(mine.LookUpTag(0x0008, 0x7771), nullptr);

    const CDcmEntry* entry = mine.AddPrivateEntry(0x0009, 0x1001, "??", 3);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->vr, static_cast<DWORD>(VR_OB));
    EXPECT_EQ(entry->multiplicity, 3);
    EXPECT_STREQ(entry->name, "Private Data Element");
    EXPECT_EQ(mine.AddPrivateEntry(0x0009, 0x1001, "LO", 1), entry);
    EXPECT_EQ(entry->vr, static_cast<DWORD>(VR_OB));
}

TEST(PrivateEntries, BelongToOneRegistryUntilTheyArePromoted)
{
    CDcmRegistry mine;
    CDcmRegistry other;
    mine.AddPrivateEntry(0x0011, 0x1001, "DS", 1);
    EXPECT_EQ(other.LookUpTag(0x0011, 0x1001), nullptr);
    mine.ClearPrivateEntries();
    EXPECT_EQ(mine.LookUpTag(0x0011, 0x1001), nullptr);

    mine.AddPrivateEntry(0x0011, 0x1001, "lo", 1);
    mine.PromotePrivateEntries();
    const CDcmEntry* lasting = other.LookUpTag(0x0011, 0x1001);
    ASSERT_NE(lasting, nullptr);
    EXPECT_EQ(lasting->vr, static_cast<DWORD>(VR_LO));

    // A later read that meets the tag with another VR does not change it.
    other.AddPrivateEntry(0x0011, 0x1001, "DS", 1);
    other.PromotePrivateEntries();
    EXPECT_EQ(mine.LookUpTag(0x0011, 0x1001), lasting);
    EXPECT_EQ(lasting->vr, static_cast<DWORD>(VR_LO));
}
