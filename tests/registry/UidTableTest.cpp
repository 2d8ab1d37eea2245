#include "Varnotix/registry/DcmRegistry.h"
#include "Varnotix/registry/UidRow.h"

#include <gtest/gtest.h>

#include <string>

TEST(UidTable, RowsThatCarryMeaningNameTheirUids)
{
    const char* const rows[] = {"1",       "2",       "2.1",     "2.1.99",  "2.2",     "2.4.50",  "2.4.51",
                                "2.4.57",  "2.4.70",  "2.4.80",  "2.4.81",  "2.4.90",  "2.4.91",  "2.4.92",
                                "2.4.93",  "2.4.100", "2.4.101", "2.4.102", "2.4.103", "2.4.104", "2.4.105",
                                "2.4.106", "2.4.107", "2.4.108", "2.4.201", "2.4.202", "2.4.203", "2.5"};
    const CDcmRegistry registry;
    for (int row = 0; row <= Varnotix::UID_RLE; ++row)
    {
        const std::string uid = "1.2.840.10008.1." + std::string(rows[row]);
        EXPECT_EQ(std::string(registry.UidString(row)), uid);
        EXPECT_EQ(registry.UidEnum(CString(uid)), row) << uid;
    }
    EXPECT_GT(registry.UidEnum("1.2.840.10008.1.2.4.52"), Varnotix::UID_RLE);
    // A search ignores blanks and padding only.
    EXPECT_EQ(registry.UidEnum("  1.2.840.10008.1.2.1 "), Varnotix::UID_EXPLICIT_LITTLE);
    // A value read from a stream keeps its padding byte.
    EXPECT_EQ(registry.UidEnum(CString("1.2.840.10008.1.2.1\0", 20)), Varnotix::UID_EXPLICIT_LITTLE);
    for (const char* unknown : {"", " ", "1.2.840.10008.1.2.", "1.2.840.10008.1.2.1.0"})
    {
        EXPECT_EQ(registry.UidEnum(unknown), -1) << unknown;
    }
    // The next call overwrites the result.
    const CString& result = registry.UidString(0);
    EXPECT_STREQ(result, "1.2.840.10008.1.1");
    registry.UidString(4);
    EXPECT_STREQ(result, "1.2.840.10008.1.2.2");
    EXPECT_TRUE(registry.UidString(-1).IsEmpty());
    EXPECT_TRUE(registry.UidString(registry.UidDictionarySize()).IsEmpty());
}

TEST(PhotometricNames, NumberTheInterpretationsBothWays)
{
    const CDcmRegistry registry;
    std::string names;
    for (int value = 0; value < 12; ++value)
    {
        names += std::string(registry.PhotoMetricString(value)) + " ";
        EXPECT_EQ(registry.PhotoMetricEnum(registry.PhotoMetricString(value)), value);
    }
    EXPECT_EQ(names, "MONOCHROME1 MONOCHROME2 PALETTE COLOR RGB YBR_FULL YBR_FULL_422 YBR_PARTIAL_422 YBR_ICT YBR_RCT "
                     "HSV ARGB CMYK ");
    EXPECT_EQ(registry.PhotoMetricEnum(" Palette Color "), 2);
    for (const char* unknown : {"", "MONOCHROME", "PALETTE  COLOR", "MONOCHROME3"})
    {
        EXPECT_EQ(registry.PhotoMetricEnum(unknown), -1) << unknown;
    }
    EXPECT_STREQ(registry.PhotoMetricString(-1) + registry.PhotoMetricString(12), "");
}
