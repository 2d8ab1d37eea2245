// Items of sequences under the standard stream rules, from a stream through typed objects and back.

#include "Bytes.h"
#include "Varnotix/catalogue/Catalogue.h"
#include "Varnotix/iod/ImageIODs.h"

#include <gtest/gtest.h>

namespace
{

constexpr int kRegionGroup = 0x0018;
constexpr int kRegions = 0x6011;

/// Two ultrasound regions. The first one lacks the units that the second one has; both hold an empty value.
CByteArray TwoRegions()
{
    return Stream("0800 6000 'CS' 0200 'US'"
                  "1800 1160 'SQ' 0000 3E000000"
                  " FEFF 00E0 12000000 0800 2000 'DA' 0000 1800 1260 'US' 0200 0100"
                  " FEFF 00E0 1C000000 1800 1260 'US' 0200 0200 1800 2460 'US' 0200 0300 1800 2660 'US' 0000");
}

void Read(CDcmIOD& object, const CByteArray& bytes)
{
    object.StreamRules(STREAM_RULES_STANDARD);
    object.FileFormat(false);
    object.Import(bytes);
}

std::string Written(CDcmIOD& object)
{
    CByteArray bytes;
    object.ExportFileFormat(bytes);
    return HexText(bytes);
}

CDcmUSRegionSequence& FirstRegion(CDcmIOD& object)
{
    auto* module =
        static_cast<CDcmUSRegionCalibrationModule*>(object.FindModule(RUNTIME_CLASS(CDcmUSRegionCalibrationModule)));
    return module->UltraSoundRegions();
}

} // namespace

TEST(Items, AreWrittenAsReadByTypedObjects)
{
    CUSImageIOD object;
    Read(object, TwoRegions());
    EXPECT_EQ(Written(object), HexText(TwoRegions()));
    const CUSImageIOD copy(object);
    CUSImageIOD assigned;
    assigned = copy;
    EXPECT_EQ(assigned.StreamRules(), STREAM_RULES_STANDARD);
    assigned.FileFormat(false);
    EXPECT_EQ(Written(assigned), HexText(TwoRegions()));
}

TEST(Items, AreSeenOneByOneThroughASequenceClass)
{
    CUSImageIOD object;
    Read(object, TwoRegions());
    EXPECT_EQ(FirstRegion(object).RegionSpatialFormat(), 1);
    EXPECT_EQ(FirstRegion(object).PhysicalUnitsXDirection(), 0) << "the first item has none";

    const CDcmElementSet& items = *object.ElementStore().Find(kRegionGroup, kRegions)->Items();
    ASSERT_EQ(items.ItemCount(), 2);
    CDcmUSRegionSequence region;
    region.TakeItem(items, 2);
    EXPECT_EQ(region.RegionSpatialFormat(), 2);
    EXPECT_EQ(region.PhysicalUnitsXDirection(), 3);
    region.TakeItem(items, 1);
    EXPECT_EQ(region.RegionSpatialFormat(), 1);
    EXPECT_EQ(region.PhysicalUnitsXDirection(), 0);
}

TEST(Items, TakeTheValuesThatAreSetInThem)
{
    CUSImageIOD object;
    Read(object, TwoRegions());
    FirstRegion(object).PhysicalUnitsXDirection(7);
    EXPECT_EQ(Written(object),
              HexText(Stream("0800 6000 'CS' 0200 'US'"
                             "1800 1160 'SQ' 0000 48000000"
                             " FEFF 00E0 1C000000 0800 2000 'DA' 0000 1800 1260 'US' 0200 0100 1800 2460 'US' 0200 0700"
                             " FEFF 00E0 1C000000 1800 1260 'US' 0200 0200 1800 2460 'US' 0200 0300 1800 2660 'US' "
                             "0000")));

    CDcmIOD plain;
    Read(plain, TwoRegions());
    CDcmElementSet& items = *plain.ElementStore().Find(kRegionGroup, kRegions)->Items();
    items.FindInItem(2, kRegionGroup, 0x6012)->SetWords({});
    items.BeginItem(true);
    items.Add(new CDcmElement(kRegionGroup, 0x6014));
    EXPECT_TRUE(items.RemoveItem(1));
    EXPECT_EQ(Written(plain), HexText(Stream("0800 6000 'CS' 0200 'US'"
                                             "1800 1160 'SQ' 0000 3A000000"
                                             " FEFF 00E0 1A000000 1800 1260 'US' 0000 1800 2460 'US' 0200 0300"
                                             " 1800 2660 'US' 0000"
                                             " FEFF 00E0 FFFFFFFF 1800 1460 'US' 0000 FEFF 0DE0 00000000")));
}

TEST(Items, OfSequencesMadeByAccessorsAreOne)
{
    CSCMultiFrameImageIOD object;
    object.StreamRules(STREAM_RULES_STANDARD);
    object.FileFormat(false);
    object.IodSyntax("1.2.840.10008.1.2.1");
    auto* pixels = static_cast<CDcmImagePixelModule*>(object.FindModule(RUNTIME_CLASS(CDcmImagePixelModule)));
    ASSERT_NE(pixels, nullptr);
    pixels->BitsAllocated(8);
    pixels->SetPixelData(Bytes({1, 2, 3}));
    pixels->SetPixelData(Bytes({4, 5, 6}));
    CDcmElementSet& store = object.ElementStore();
    store.Add(new CDcmElement(0x0008, 0x2218)); // Anatomic Region Sequence
    CDcmCodeSequenceMacroEx code;
    code.CodeValue("T-D3000");
    code.CodingSchemeDesignator("SRT");
    code.CodeMeaning("Chest");
    store.GetAt(0)->SetItems(code.GetDcmElementSet());
    store.GetAt(0)->PruneEmptyItems();
    EXPECT_EQ(Written(object), HexText(Stream("0800 1822 'SQ' 0000 32000000 FEFF 00E0 2A000000"
                                              " 0800 0001 'SH' 0800 'T-D3000 ' 0800 0201 'SH' 0400 'SRT '"
                                              " 0800 0401 'LO' 0600 'Chest '"
                                              "2800 0001 'US' 0200 0800"
                                              "E07F 1000 'OB' 0000 06000000 010203040506")));
}
