#include "Varnotix/registry/DcmRegistry.h"
#include "Varnotix/registry/InitDicomDLL.h"

#include <gtest/gtest.h>

#include <memory>

TEST(InitDicomDll, LetsClassesBeFoundByNameFromThenOn)
{
    EXPECT_EQ(CRuntimeClass::FromName("CDcmRegistry"), nullptr);
    InitDicomDLL();
    InitDicomDLL();
    const std::unique_ptr<CObject> made(CRuntimeClass::CreateObject("CDcmRegistry"));
    EXPECT_NE(made, nullptr);
}

TEST(VrTable, CodesTextsSpellingsAndLimitsAreFixed)
{
    EXPECT_STREQ(Varnotix::VrText(0), "AE");
    EXPECT_STREQ(Varnotix::VrText(18), "SQ");
    EXPECT_STREQ(Varnotix::VrText(VR_NONE), "NONE");
    for (const int code : {-1, 27, 29, 1000})
    {
        EXPECT_STREQ(Varnotix::VrText(code), "");
    }
    EXPECT_EQ(Varnotix::VrRow(VR_LT).maxLength, 10240U);
    EXPECT_EQ(Varnotix::VrRow(VR_UT).maxLength, 4294967294U);
    EXPECT_EQ(CDcmType(VR_AT).code, 2U);
    // Spellings of VRs that depend on the context have one code each.
    const std::pair<const char*, int> codes[] = {
        {"DT", 6},           {"UT", 26},           {"usss", VR_US},       {"csob", VR_OB},   {"USSSOW", VR_OW},
        {"ObOw", VR_OB},     {"none", VR_NONE},    {"", VR_UNKNOWN},      {"P", VR_UNKNOWN}, {"ZZ", VR_UNKNOWN},
        {"PNX", VR_UNKNOWN}, {"usow", VR_UNKNOWN}, {"\x10N", VR_UNKNOWN}, {"0B", VR_UNKNOWN}};
    for (const auto& [text, code] : codes)
    {
        EXPECT_EQ(Varnotix::VrCode(text), code) << text;
    }
}

TEST(Dictionary, IsFoundByTextsInAnyCaseAndWithBlanks)
{
    const CDcmEntry* entry = CDcmRegistry::Global().LookUpDictionary("0010", "0020");
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(CDcmRegistry::Global().LookUpDictionary(" 0010", "0020 \t"), entry);
    EXPECT_EQ(CDcmRegistry::Global().LookUpDictionary("7FE0", "0010"),
              CDcmRegistry::Global().LookUpDictionary("7fe0", "0010"));
    for (const char* unknown : {"", "0010002", "0010 0020", "001000200", "0010XXXX"})
    {
        EXPECT_EQ(CDcmRegistry::Global().LookUpKey(unknown), nullptr) << unknown;
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
    // A later read that meets the tag with another VR does not change it.
    other.AddPrivateEntry(0x0011, 0x1001, "DS", 1);
    other.PromotePrivateEntries();
    EXPECT_EQ(mine.LookUpTag(0x0011, 0x1001), lasting);
    EXPECT_EQ(lasting->vr, static_cast<DWORD>(VR_LO));
}
