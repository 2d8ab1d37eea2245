#include "Varnotix/registry/DcmRegistry.h"

#include <gtest/gtest.h>

TEST(UidTable, RowsThatCarryMeaningNameTheirUids)
{
    const char* const rows[] = {
        "1.2.840.10008.1.1",       "1.2.840.10008.1.2",       "1.2.840.10008.1.2.1",     "1.2.840.10008.1.2.1.99",
        "1.2.840.10008.1.2.2",     "1.2.840.10008.1.2.4.50",  "1.2.840.10008.1.2.4.51",  "1.2.840.10008.1.2.4.57",
        "1.2.840.10008.1.2.4.70",  "1.2.840.10008.1.2.4.80",  "1.2.840.10008.1.2.4.81",  "1.2.840.10008.1.2.4.90",
        "1.2.840.10008.1.2.4.91",  "1.2.840.10008.1.2.4.92",  "1.2.840.10008.1.2.4.93",  "1.2.840.10008.1.2.4.100",
        "1.2.840.10008.1.2.4.101", "1.2.840.10008.1.2.4.102", "1.2.840.10008.1.2.4.103", "1.2.840.10008.1.2.4.104",
        "1.2.840.10008.1.2.4.105", "1.2.840.10008.1.2.4.106", "1.2.840.10008.1.2.4.107", "1.2.840.10008.1.2.4.108",
        "1.2.840.10008.1.2.4.201", "1.2.840.10008.1.2.4.202", "1.2.840.10008.1.2.4.203", "1.2.840.10008.1.2.5"};
    const CDcmRegistry registry;
    int row = 0;
    for (const char* uid : rows)
    {
        EXPECT_STREQ(registry.UidString(row), uid);
        EXPECT_EQ(registry.UidEnum(uid), row) << uid;
        ++row;
    }
    EXPECT_EQ(row, 28);
    EXPECT_GT(registry.UidEnum("1.2.840.10008.1.2.4.52"), 27);
}

TEST(UidTable, SearchIgnoresBlanksAndPaddingOnly)
{
    const CDcmRegistry registry;
    EXPECT_EQ(registry.UidEnum("  1.2.840.10008.1.2.1 "), 2);
    // A value read from a stream keeps its padding byte.
    EXPECT_EQ(registry.UidEnum(CString("1.2.840.10008.1.2.1\0", 20)), 2);
    for (const char* unknown : {"", " ", "1.2.840.10008.1.2.", "1.2.840.10008.1.2.1.0"})
    {
        EXPECT_EQ(registry.UidEnum(unknown), -1) << unknown;
    }
}

TEST(UidTable, NextCallOverwritesTheResult)
{
    const CDcmRegistry registry;
    const CString& result = registry.UidString(0);
    EXPECT_STREQ(result, "1.2.840.10008.1.1");
    registry.UidString(4);
    EXPECT_STREQ(result, "1.2.840.10008.1.2.2");
    EXPECT_TRUE(registry.UidString(-1).IsEmpty());
    EXPECT_TRUE(registry.UidString(registry.UidDictionarySize()).IsEmpty());
}

TEST(PhotometricNames, NumberTheInterpretationsBothWays)
{
    const char* const names[] = {"MONOCHROME1",     "MONOCHROME2", "PALETTE COLOR", "RGB", "YBR_FULL", "YBR_FULL_422",
                                 "YBR_PARTIAL_422", "YBR_ICT",     "YBR_RCT",       "HSV", "ARGB",     "CMYK"};
    const CDcmRegistry registry;
    int value = 0;
    for (const char* name : names)
    {
        EXPECT_STREQ(registry.PhotoMetricString(value), name);
        EXPECT_EQ(registry.PhotoMetricEnum(name), value);
        ++value;
    }
    EXPECT_EQ(registry.PhotoMetricEnum(" Palette Color "), 2);
    for (const char* unknown : {"", "MONOCHROME", "PALETTE  COLOR", "MONOCHROME3"})
    {
        EXPECT_EQ(registry.PhotoMetricEnum(unknown), -1) << unknown;
    }
    EXPECT_TRUE(registry.PhotoMetricString(-1).IsEmpty());
    EXPECT_TRUE(registry.PhotoMetricString(12).IsEmpty());
}
