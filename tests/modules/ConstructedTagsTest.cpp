// Classes whose tags are told when they are constructed.

#include "Bytes.h"
#include "Values.h"
#include "Varnotix/modules/Catalogue.h"

#include <gtest/gtest.h>

TEST(RepeatingGroup, IsTheOneThatTheModuleWasMadeFor)
{
    CDcmOverLayPlaneModule overlay("6002");
    overlay.OverlayOrigin(Words({1, 0xFFFF}));
    EXPECT_EQ(Values(overlay), "60020050=1 65535 ");
    EXPECT_NE(CDcmOverLayPlaneModule().GetDcmElementSet().Find(0x6000, 0x3000), nullptr);
    EXPECT_NE(CDcmMultiFrameOverlayModule("6004").GetDcmElementSet().Find(0x6004, 0x0051), nullptr);
    EXPECT_STREQ(kDefaultCurveGroup, "5000");
    EXPECT_STREQ(kDefaultOverlayGroup, "6000");

    for (const char* group : {"", "sound", "50FF"})
    {
        EXPECT_NE(CDcmAudioModule(group).GetDcmElementSet().Find(0x50FF, 0x2000), nullptr) << group;
    }
    CDcmAudioModule audio("5002");
    audio.SampleRate(8000);
    audio.ReferencedImage().ReferencedSOPClassUID("1.2");
    EXPECT_EQ(Values(audio), "00081140={00081150=1.2 } 50022008=8000 ");
}

TEST(RepeatingGroup, IsTakenOverByACopyWithItsSequence)
{
    CDcmCurveModule source("5004");
    source.CurveLabel("LABEL");
    source.ReferencedOverlay().GetDcmElementSet().Find(0x5004, 0x2610)->AddWord(0x6000);
    CDcmCurveModule assigned;
    EXPECT_NE(assigned.GetDcmElementSet().Find(0x5000, 0x2600), nullptr);
    assigned = source;
    EXPECT_EQ(Values(assigned), "50042500=LABEL 50042600={50042610=24576 } ");
    EXPECT_EQ(Values(CDcmCurveModule(source)), Values(source));
    assigned.ReferencedOverlay().GetDcmElementSet().EmptyValues();
    EXPECT_EQ(Values(assigned), "50042500=LABEL ");
    EXPECT_EQ(Values(source), "50042500=LABEL 50042600={50042610=24576 } ");
}

TEST(CodeAndModifier, KeepsTheModifierTagOfItsOwnSequence)
{
    CDcmCodeAndModifer view("0054", "0222");
    view.Code().CodeValue("V");
    view.Modifier().CodeValue("M");
    EXPECT_EQ(Values(view), "00080100=V 00540222={00080100=M } ");
    EXPECT_EQ(Values(CDcmCodeAndModifer(view)), Values(view));
    CDcmNMImageModule image;
    image.AnatomicRegion() = view;
    EXPECT_EQ(Values(image), "00082218={00080100=V 00082220={00080100=M } } ");
    image.AnatomicRegion().Modifier().CodeValue("N");
    EXPECT_EQ(Values(image), "00082218={00080100=V 00082220={00080100=N } } ");
}
