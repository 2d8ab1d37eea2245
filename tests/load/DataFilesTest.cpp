// The registry reads its files when its first instance is made. These tests end the library's own instance and make it
// again in a folder with files of their own, so they have a program to themselves.

#include "StreamBytes.h"
#include "Varnotix/registry/DcmRegistry.h"

#include <climits>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string_view>
#include <tuple>

namespace
{

/// Tests in a folder of their own.
class DataFiles : public testing::Test
{
protected:
    void SetUp() override { std::filesystem::create_directories(m_before / "own_files"); }
    void TearDown() override
    {
        std::filesystem::current_path(m_before);
        std::filesystem::remove_all("own_files");
    }

    /// Loads the registry again from the texts.
    static CDcmRegistry& Load(std::string_view dictionary, std::string_view uids)
    {
        std::ofstream("own_files/dictionary.txt", std::ios::binary) << dictionary;
        std::ofstream("own_files/UidTable.txt", std::ios::binary) << uids;
        std::filesystem::current_path("own_files");
        CDcmRegistry& registry = CDcmRegistry::Global();
        std::destroy_at(&registry);
        return *std::construct_at(&registry);
    }

private:
    const std::filesystem::path m_before = std::filesystem::current_path();
};

} // namespace

TEST_F(DataFiles, LinesAreTrimmedCommentsSkippedAndTheFirstOfATagStands)
{
    const CDcmRegistry& registry = Load("# a comment\r\n"
                                        "   # another, after blanks\n"
                                        "\r\n"
                                        "\n"
                                        " 0010 ,\t0020 , lo , 1-n , Patient ID , [a,b] rest\r\n"
                                        "0010,0030,DA,n,Birth Date\n"
                                        "0010,00AB,PN,2,First\n0010,00ab,LO,1,Second\n"
                                        "0010,0050,LO,99999999999,Many\n"
                                        "0010,0040,CS,-1,Sex", // The last line has no end.
                                        "");
    EXPECT_EQ(registry.DictionarySize(), 5);
    const std::tuple<int, int, int, const char*> entries[] = {{0x20, VR_LO, 1, "Patient ID"},
                                                              {0x30, VR_DA, 1, "Birth Date"},
                                                              {0xAB, VR_PN, 2, "First"},
                                                              {0x50, VR_LO, INT_MAX, "Many"},
                                                              {0x40, VR_CS, -1, "Sex"}};
    for (const auto& [element, vr, multiplicity, name] : entries)
    {
        const CDcmEntry* entry = registry.LookUpTag(0x0010, element);
        ASSERT_NE(entry, nullptr) << name;
        EXPECT_EQ(static_cast<int>(entry->vr), vr) << name;
        EXPECT_EQ(entry->multiplicity, multiplicity) << name;
        EXPECT_STREQ(entry->name, name);
    }
}

TEST_F(DataFiles, MalformedLinesMakeEntriesUnderWhatKeyTheyHold)
{
    const CDcmRegistry& registry = Load("  \t\n0018\nzz\n0018,0010,QQ,3\n", "");
    EXPECT_EQ(registry.DictionarySize(), 4);
    for (const CDcmEntry* entry : {registry.LookUpKey(""), registry.LookUpDictionary("0018", ""),
                                   registry.LookUpKey("ZZ"), registry.LookUpTag(0x0018, 0x0010)})
    {
        ASSERT_NE(entry, nullptr);
        EXPECT_EQ(entry->vr, static_cast<DWORD>(VR_UNKNOWN));
    }
    EXPECT_EQ(registry.LookUpTag(0x0018, 0x0010)->multiplicity, 3);
}

TEST_F(DataFiles, RepeatingGroupsAreLoadedInAnyCaseAndExportedWithZeros)
{
    const CDcmRegistry& registry = Load("60XX,3000,obow,1,Overlay Data\n50xx,0005,usss,1,Curve Dimensions\n"
                                        "6004,0010,US,1,Never reached by number\n",
                                        "");
    EXPECT_STREQ(registry.LookUpTag(0x6002, 0x3000)->name, "Overlay Data");
    EXPECT_STREQ(registry.LookUpTag(0x5010, 0x0005)->name, "Curve Dimensions");
    EXPECT_EQ(registry.LookUpTag(0x6004, 0x0010), nullptr);
    EXPECT_NE(registry.LookUpDictionary("6004", "0010"), nullptr);
    CStringArray lines;
    registry.ExportPublicDictionary(lines);
    EXPECT_STREQ(lines[0], "6000,3000,OB,1,Overlay Data,");
}

TEST_F(DataFiles, ThatAreMissingOrOfASizeThatNoTableHasAreTakenFromElsewhere)
{
    Load("", "");
    std::filesystem::resize_file("dictionary.txt", (std::uintmax_t{64} << 20U) + 1);
    std::filesystem::remove("UidTable.txt");
    CDcmRegistry& registry = CDcmRegistry::Global();
    std::destroy_at(&registry);
    std::construct_at(&registry);
    EXPECT_STRNE(registry.DictionaryPath(), "dictionary.txt");
    EXPECT_STRNE(registry.UidTablePath(), "UidTable.txt");
    EXPECT_NE(registry.LookUpTag(0x0010, 0x0010), nullptr) << registry.DictionaryPath().CText();
}

TEST_F(DataFiles, ThatGiveATagNoVrLeaveImplicitStreamsUnread)
{
    Load("0010,0010,QQ,1,Name of no VR\n", "");
    const SRead read(Stream("1000 1000 02000000 'AB'"));
    EXPECT_EQ(read.set.GetCount(), 0);
    ASSERT_FALSE(read.parser.Trials().empty());
    EXPECT_EQ(read.parser.Trials().back().fault, PARSE_NO_VR);
}

TEST_F(DataFiles, UidLinesEndAtTheFirstBlankAndLaterRowsWin)
{
    CDcmRegistry& registry = CDcmRegistry::Global();
    const int before = registry.UidDictionarySize();
    Load("", "9.1 First name\n\n9.2\r\n # no comment\n9.1 Again\n");
    // Rows are appended at every load; the enumeration answers with the last one.
    ASSERT_EQ(registry.UidDictionarySize(), before + 4);
    EXPECT_STREQ(registry.UidString(before), "9.1");
    EXPECT_STREQ(registry.UidString(before + 1), "9.2");
    EXPECT_TRUE(registry.UidString(before + 2).IsEmpty());
    EXPECT_EQ(registry.UidEnum("9.1"), before + 3);
    EXPECT_EQ(registry.UidEnum("9.2"), before + 1);
}
