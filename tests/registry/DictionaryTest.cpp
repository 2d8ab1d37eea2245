#include "Varnotix/registry/DcmRegistry.h"
#include "Varnotix/registry/InitDicomDLL.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
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

TEST(Dictionary, EveryGroupOfARepeatingFamilyAnswersWithOneEntry)
{
    const CDcmEntry* data = Registry().LookUpDictionary("60xx", "3000");
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(Registry().LookUpDictionary("60XX", "3000"), data);
    for (const int group : {0x6000, 0x6001, 0x6002, 0x60FF})
    {
        EXPECT_EQ(Registry().LookUpTag(group, 0x3000), data) << group;
    }
    EXPECT_EQ(Registry().LookUpTag(0x6100, 0x3000), nullptr);
    const CDcmEntry* dimensions = Registry().LookUpTag(0x5010, 0x0005);
    ASSERT_NE(dimensions, nullptr);
    EXPECT_EQ(dimensions, Registry().LookUpDictionary("50xx", "0005"));
    // By text only the family itself has a key.
    EXPECT_EQ(Registry().LookUpDictionary("6002", "3000"), nullptr);
}

TEST(Dictionary, ShippedFileHoldsWhatStreamsNeed)
{
    EXPECT_GT(Registry().DictionarySize(), 4000);
    // Without its group length line a stream that carries one could not be read.
    for (const int group : {0x0002, 0x0008, 0x0010, 0x0028, 0x5000, 0x50FE, 0x6000, 0x6002, 0x7FE0})
    {
        const CDcmEntry* entry = Registry().LookUpTag(group, 0x0000);
        ASSERT_NE(entry, nullptr) << group;
        EXPECT_EQ(entry->vr, static_cast<DWORD>(VR_UL));
        EXPECT_EQ(entry->multiplicity, 1);
    }
    for (const int element : {0xE000, 0xE00D, 0xE0DD})
    {
        ASSERT_NE(Registry().LookUpTag(0xFFFE, element), nullptr);
        EXPECT_EQ(Registry().LookUpTag(0xFFFE, element)->vr, static_cast<DWORD>(VR_NONE));
    }
    EXPECT_EQ(Registry().LookUpTag(0x0010, 0x1001)->multiplicity, -1);
    EXPECT_EQ(Registry().LookUpTag(0x0028, 0x0030)->multiplicity, 2);
    EXPECT_EQ(Registry().LookUpTag(0x0028, 0x0106)->vr, static_cast<DWORD>(VR_US));
}

TEST(Dictionary, ExportWritesALineAnEntryBehindWhatIsThere)
{
    CStringArray lines;
    lines.Add("kept");
    Registry().ExportPublicDictionary(lines);
    ASSERT_EQ(lines.GetSize(), Registry().DictionarySize() + 1);
    EXPECT_STREQ(lines[0], "kept");
    std::set<std::string> found;
    for (const CString& line : lines)
    {
        found.emplace(line.View());
    }
    EXPECT_TRUE(found.contains("0010,0020,LO,1,Patient ID,"));
    EXPECT_TRUE(found.contains("7FE0,0010,OB,1,Pixel Data,") || found.contains("7FE0,0010,OW,1,Pixel Data,"));
    EXPECT_TRUE(found.contains("6000,3000,OB,1,Overlay Data,") || found.contains("6000,3000,OW,1,Overlay Data,"));
    EXPECT_TRUE(found.contains("FFFE,E000,NONE,1,Item,"));
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

TEST(PrivateEntries, FarMoreThanTheFirstTableHoldsAreFound)
{
    CDcmRegistry mine;
    for (int element = 0x1000; element < 0x1000 + 5000; ++element)
    {
        mine.AddPrivateEntry(0x0013, element, "US", element);
    }
    for (int element = 0x1000; element < 0x1000 + 5000; ++element)
    {
        ASSERT_NE(mine.LookUpTag(0x0013, element), nullptr);
        ASSERT_EQ(mine.LookUpTag(0x0013, element)->multiplicity, element);
    }
    EXPECT_EQ(mine.LookUpTag(0x0013, 0x0FFF), nullptr);
}
