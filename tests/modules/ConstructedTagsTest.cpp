// Classes whose tags are given at construction, and items that are modules.

#include "Values.h"
#include "Varnotix/catalogue/Catalogue.h"

#include <gtest/gtest.h>

TEST(RepeatingGroup, IsTheOneThatTheModuleWasMadeFor)
{
    CDcmOverLayPlaneModule overlay("6002");
    overlay.OverlayOrigin(Words({1, 0xFFFF}));
    EXPECT_EQ(Filled(overlay), "60020050 SS 1 65535");
    for (const char* group : {"", "sound", "50FF"})
    {
        EXPECT_NE(CDcmAudioModule(group).GetDcmElementSet().Find(0x50FF, 0x2000), nullptr) << group;
    }
    CDcmAudioModule audio("5002");
    audio.SampleRate(8000);
    audio.ReferencedImage().ReferencedSOPClassUID("1.2");
    EXPECT_EQ(Filled(audio), "00081140 SQ {00081150 UI 1.2}; 50022008 UL 8000");
}

TEST(RepeatingGroup, IsTakenOverByACopyWithItsSequence)
{
    CDcmCurveModule source("5004");
    source.CurveLabel("LABEL");
    source.ReferencedOverlay().GetDcmElementSet().Find(0x5004, 0x2610)->AddWord(0x6000);
    CDcmCurveModule assigned;
    EXPECT_NE(assigned.GetDcmElementSet().Find(0x5000, 0x2600), nullptr);
    assigned = source;
    EXPECT_EQ(Filled(assigned), "50042500 LO LABEL; 50042600 SQ {50042610 US 24576}");
}

TEST(CodeAndModifier, KeepsTheModifierTagOfItsOwnSequence)
{
    CDcmCodeAndModifer view("0054", "0222");
    view.Code().CodeValue("V");
    view.Modifier().CodeValue("M");
    EXPECT_EQ(Filled(view), "00080100 SH V; 00540222 SQ {00080100 SH M}");
    EXPECT_EQ(Filled(CDcmCodeAndModifer(view)), Filled(view));
    CDcmNMImageModule image;
    image.AnatomicRegion() = view;
    EXPECT_EQ(Filled(image), "00082218 SQ {00080100 SH V; 00082220 SQ {00080100 SH M}}");
}

TEST(IncludedMacro, FollowsItsItemThroughReadsAndCopies)
{
    CDcmGeneralImageModule source;
    CDcmImagePixelModule& icon = source.IconImage().ImagePixelModule();
    icon.Rows(64);
    icon.SetPixelData(Bytes({1, 2, 3, 4}));
    CDcmGeneralImageModule again(ReadBack(source));
    CDcmGeneralImageModule copy(again);
    again.GetDcmElementSet().EmptyValues();
    EXPECT_EQ(copy.IconImage().ImagePixelModule().Rows(), 64);
    CObList frames;
    copy.IconImage().ImagePixelModule().GetPixelData(frames);
    ASSERT_EQ(frames.GetCount(), 1);
    EXPECT_EQ(Numbers(static_cast<const CByteArray&>(*frames.GetHead())), (std::vector<int>{1, 2, 3, 4}));
}
