#include "Varnotix/registry/DcmRegistry.h"
#include "Varnotix/registry/InitDicomDLL.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

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
    for (const char* name : {"CDcmRegistry", "CDcmElement", "CDcmElementSet", "CDcmAttributeSet", "CDcmModule",
                             "CDcmSequence", "CDcmPatientModule", "CDcmMetaFileInformation", "CDcmIOD"})
    {
        const std::unique_ptr<CObject> made(CRuntimeClass::CreateObject(name));
        ASSERT_NE(made, nullptr) << name;
        EXPECT_STREQ(made->GetRuntimeClass()->m_lpszClassName, name);
    }
}

TEST(VrTable, CodesTextsAndLimitsAreFixed)
{
    const std::pair<int, const char*> rows[] = {{0, "AE"},  {6, "DT"},  {8, "FD"},  {12, "OB"}, {14, "OW"},
                                                {18, "SQ"}, {22, "UI"}, {24, "UN"}, {26, "UT"}};
    for (const auto& [code, text] : rows)
    {
        EXPECT_STREQ(VrText(code), text);
        EXPECT_EQ(VrCode(text), code);
    }
    EXPECT_STREQ(VrText(VR_NONE), "NONE");
    for (const int code : {-1, 27, 29, 1000})
    {
        EXPECT_STREQ(VrText(code), "");
    }
    EXPECT_EQ(VrRow(VR_LT).maxLength, 10240U);
    EXPECT_EQ(VrRow(VR_UT).maxLength, 4294967294U);
    EXPECT_EQ(VrRow(VR_SQ).maxLength, 0U);
    EXPECT_STREQ(VrRow(VR_AS).description, "AS Age String");
    EXPECT_EQ(CDcmType(VR_AT).code, 2U);
    EXPECT_EQ(CDcmType(VR_AS).code, 0U);
}

TEST(VrTable, SpellingsForContextDependentVrsHaveOneCodeEach)
{
    EXPECT_EQ(VrCode("usss"), VR_US);
    EXPECT_EQ(VrCode("csob"), VR_OB);
    EXPECT_EQ(VrCode("USSSOW"), VR_OW);
    EXPECT_EQ(VrCode("ObOw"), VR_OB);
    EXPECT_EQ(VrCode("none"), VR_NONE);
    EXPECT_EQ(VrCode("pn"), VR_PN);
    for (const char* text : {"", "P", "ZZ", "PNX", "usow", "\x10N", "0B"})
    {
        EXPECT_EQ(VrCode(text), VR_UNKNOWN) << text;
    }
}

TEST(Dictionary, IsFoundByTextsInAnyCaseAndWithBlanks)
{
    const CDcmEntry* entry = Registry().LookUpDictionary("0010", "0020");
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->vr, static_cast<DWORD>(VR_LO));
    EXPECT_STREQ(entry->name, "Patient ID");
    EXPECT_EQ(entry->retired, 0);
    EXPECT_EQ(Registry().LookUpDictionary(" 0010", "0020 \t"), entry);
    EXPECT_NE(Registry().LookUpDictionary("7fe0", "0010"), nullptr);
    EXPECT_EQ(Registry().LookUpDictionary("7FE0", "0010"), Registry().LookUpDictionary("7fe0", "0010"));
    EXPECT_EQ(Registry().LookUpTag(0x0010, 0x0020), entry);
    EXPECT_EQ(Registry().LookUpKey("00100020"), entry);
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
    mine.AddPrivateEntry(0x0011, 0x1001, "lo", 1);
    mine.AddPrivateEntry(0x0011, 0x1002, "DS", 1);
    EXPECT_NE(mine.LookUpTag(0x0011, 0x1001), nullptr);
    EXPECT_EQ(other.LookUpTag(0x0011, 0x1001), nullptr);
    mine.ClearPrivateEntries();
    EXPECT_EQ(mine.LookUpTag(0x0011, 0x1001), nullptr);

    mine.AddPrivateEntry(0x0011, 0x1001, "lo", 1);
    mine.PromotePrivateEntries();
    const CDcmEntry* lasting = other.LookUpTag(0x0011, 0x1001);
    ASSERT_NE(lasting, nullptr);
    EXPECT_EQ(lasting->vr, static_cast<DWORD>(VR_LO));
    EXPECT_EQ(other.LookUpTag(0x0011, 0x1002), nullptr);
    EXPECT_NE(other.LookUpDictionary("0011", "1001"), nullptr);

    // A later read that meets the tag with another VR does not change it.
    other.AddPrivateEntry(0x0011, 0x1001, "DS", 1);
    other.PromotePrivateEntries();
    EXPECT_EQ(mine.LookUpTag(0x0011, 0x1001), lasting);
    EXPECT_EQ(lasting->vr, static_cast<DWORD>(VR_LO));
}
