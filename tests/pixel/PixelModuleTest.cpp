#include "Elements.h"
#include "RleFrames.h"
#include "Varnotix/element/DcmFrameList.h"
#include "Varnotix/iod/ImageIODs.h"
#include "Varnotix/registry/DcmRegistry.h"

#include <gtest/gtest.h>

namespace
{

using Frames = std::vector<std::vector<int>>;

CDcmElement& PixelData(CDcmImagePixelModule& module)
{
    return *module.GetDcmElementSet().Find(kPixelDataGroup, kPixelDataElement);
}

Frames FramesOf(CDcmImagePixelModule& module)
{
    CObList list;
    module.GetPixelData(list);
    Frames frames;
    for (CObject* array : list)
    {
        EXPECT_TRUE(array->IsKindOf(RUNTIME_CLASS(CByteArray)));
        frames.push_back(Numbers(static_cast<CByteArray&>(*array)));
    }
    return frames;
}

CWordArray Words(std::initializer_list<WORD> values)
{
    CWordArray words;
    for (const WORD value : values)
    {
        words.Add(value);
    }
    return words;
}

CObList List(std::initializer_list<CObject*> objects)
{
    CObList list;
    for (CObject* object : objects)
    {
        list.AddTail(object);
    }
    return list;
}

} // namespace

TEST(PixelModule, DeclaresPixelDataLast)
{
    CDcmImagePixelModule module;
    CStringArray tags;
    module.GetDcmElementSet().DeclaredTags(tags);
    ASSERT_EQ(tags.GetSize(), 38);
    EXPECT_STREQ(tags[0], "0028");
    EXPECT_STREQ(tags[1], "0002");
    EXPECT_STREQ(tags[36], "7FE0");
    EXPECT_STREQ(tags[37], "0010");
}

TEST(PixelModule, AddsBytesAsFramesToByteDataOnly)
{
    CDcmImagePixelModule module;
    PixelData(module).ForcePixelVr(VR_OB);
    module.SetPixelData(Bytes({1, 2}));
    module.SetPixelData(Bytes({3}));
    EXPECT_EQ(FramesOf(module), (Frames{{1, 2}, {3}}));
    EXPECT_EQ(PixelData(module).Frames()->GetFrame(0)->Number(), 0);
    EXPECT_EQ(PixelData(module).Frames()->GetFrame(1)->Number(), 1);
    PixelData(module).ForcePixelVr(VR_OW);
    module.SetPixelData(Bytes({4}));
    EXPECT_EQ(FramesOf(module), (Frames{{1, 2}, {3}}));
    EXPECT_EQ(PixelData(module).Vr(), VR_OW);
}

TEST(PixelModule, AddsWordsLowByteFirstAndMakesTheVrOw)
{
    CDcmImagePixelModule module;
    PixelData(module).ForcePixelVr(VR_OB);
    module.SetPixelData(Bytes({1}));
    module.SetPixelData(Words({0x0102, 0x0304}));
    EXPECT_EQ(FramesOf(module), (Frames{{1}, {2, 1, 4, 3}}));
    EXPECT_EQ(PixelData(module).Vr(), VR_OW);
    EXPECT_EQ(PixelData(module).Frames()->GetFrame(1)->Number(), 1);
}

TEST(PixelModule, ReplacesAllFramesByAListOfOneKind)
{
    CDcmImagePixelModule module;
    module.SetPixelData(Words({9}));
    CByteArray first(Bytes({1, 2}));
    CByteArray second(Bytes({3}));
    CWordArray words(Words({0x0506}));

    CObList mixed(List({&first, &words}));
    module.SetPixelData(mixed);
    CObList holed(List({&first, nullptr}));
    module.SetPixelData(holed);
    CObList strangers(List({&module}));
    module.SetPixelData(strangers);
    EXPECT_EQ(FramesOf(module), (Frames{{9, 0}}));
    EXPECT_EQ(PixelData(module).Vr(), VR_OW);

    CObList bytes(List({&first, &second}));
    module.SetPixelData(bytes);
    EXPECT_EQ(FramesOf(module), (Frames{{1, 2}, {3}}));
    EXPECT_EQ(PixelData(module).Vr(), VR_OB);
    EXPECT_EQ(PixelData(module).Frames()->GetFrame(1)->Number(), 1);
    CObList own;
    module.GetPixelData(own);
    own.AddTail(&first);
    module.SetPixelData(own); // Its own frames and one more.
    EXPECT_EQ(FramesOf(module), (Frames{{1, 2}, {3}, {1, 2}}));

    CObList wordLists(List({&words}));
    module.SetPixelData(wordLists);
    EXPECT_EQ(FramesOf(module), (Frames{{6, 5}}));
    EXPECT_EQ(PixelData(module).Vr(), VR_OW);
    CObList none;
    module.SetPixelData(none);
    EXPECT_EQ(FramesOf(module), Frames());
    EXPECT_EQ(PixelData(module).Vr(), VR_OB);
}

TEST(PixelModule, TakesNothingWithoutPixelDataOfABinaryVr)
{
    CByteArray bytes(Bytes({1}));
    CObList list(List({&bytes}));
    for (const bool present : {false, true})
    {
        CDcmImagePixelModule module;
        module.GetDcmElementSet().Remove(kPixelDataGroup, kPixelDataElement);
        if (present)
        {
            module.GetDcmElementSet().Add(new CDcmElement(kPixelDataGroup, kPixelDataElement, VR_UN));
        }
        const int count = module.GetCount();
        module.SetPixelData(list);
        module.SetPixelData(bytes);
        module.SetPixelData(Words({1}));
        CObList frames(List({&bytes}));
        module.GetPixelData(frames);
        EXPECT_TRUE(frames.IsEmpty());
        EXPECT_EQ(module.GetCount(), count);
    }
}

TEST(PixelModule, SharesFramesOnTheWayFromStreamToStream)
{
    CDcmIOD plain;
    auto pixels = std::make_unique<CDcmElement>(kPixelDataGroup, kPixelDataElement, VR_OB);
    pixels->SetBytes(Repeated(7, 5000));
    plain.ElementStore().Add(pixels.release());
    plain.IodSyntax("1.2.840.10008.1.2.1");
    CByteArray stream;
    plain.ExportFileFormat(stream);

    CSCImageIOD typed;
    typed.Import(stream);
    CDcmImagePixelModule& module = typed.Module<CDcmImagePixelModule>();
    const auto inStore = [&typed]
    { return typed.ElementStore().Find(kPixelDataGroup, kPixelDataElement)->Frames()->GetFrame(0)->Data(); };
    const BYTE* const read = inStore();
    EXPECT_EQ(PixelData(module).Frames()->GetFrame(0)->Data(), read);
    typed.IodSyntax("1.2.840.10008.1.2.1");
    CByteArray written;
    typed.ExportFileFormat(written);
    EXPECT_EQ(inStore(), read);
    CSCImageIOD copy(typed);
    EXPECT_EQ(PixelData(copy.Module<CDcmImagePixelModule>()).Frames()->GetFrame(0)->Data(), read);

    // Whoever asks for an array to write to gets his own; the others keep theirs.
    CObList frames;
    module.GetPixelData(frames);
    static_cast<CByteArray&>(*frames.GetHead())[0] = 1;
    EXPECT_EQ(inStore()[0], 7);
    EXPECT_EQ(PixelData(module).Frames()->GetFrame(0)->Data()[0], 1);
    EXPECT_TRUE(written == stream);
}

TEST(RepeatingGroups, ModulesDeclareTheirTagsInTheGroupTheyAreGiven)
{
    CDcmOverLayPlaneModule overlay("6002");
    CStringArray tags;
    overlay.GetDcmElementSet().DeclaredTags(tags);
    EXPECT_EQ(tags.GetSize(), 26);
    for (int i = 0; i < tags.GetSize(); i += 2)
    {
        EXPECT_STREQ(tags[i], "6002");
    }
    EXPECT_STREQ(tags[13], "3000"); // In the order of the standard's table, which is not that of the tags.
    EXPECT_STREQ(tags[25], "1303");
    overlay.OverlayData(Bytes({1, 2}));
    overlay.OverlayLabel("L");
    EXPECT_EQ(overlay.GetDcmElementSet().Find(0x6002, 0x3000)->Name(), CDcmElement(0x6000, 0x3000).Name());
    EXPECT_STREQ(overlay.GetDcmElementSet().Find(0x6002, 0x1500)->JoinedText(), "L");
    EXPECT_TRUE(CDcmElement(0x6001, 0x3000).HasEntry());

    const CDcmOverLayPlaneModule copy(overlay);
    EXPECT_NE(copy.GetDcmElementSet().Find(0x6002, 0x3000), nullptr);
    CDcmOverLayPlaneModule assigned;
    EXPECT_NE(assigned.GetDcmElementSet().Find(0x6000, 0x0010), nullptr);
    assigned = overlay;
    EXPECT_STREQ(assigned.OverlayLabel(), "L");
    EXPECT_EQ(assigned.GetDcmElementSet().Find(0x6000, 0x0010), nullptr);
    for (const char* strange : {"", "zz", "600000"})
    {
        CDcmCurveModule curve{CString(strange)}; // Any text is taken.
        curve.CurveLabel("L");
    }
}

TEST(RepeatingGroups, ACurvesOverlayReferenceIsItsOwnGroups)
{
    CDcmCurveModule curve("5002");
    CDcmElement* sequence = curve.GetDcmElementSet().Find(0x5002, 0x2600);
    ASSERT_NE(sequence, nullptr);
    EXPECT_NE(sequence->Items()->Find(0x5002, 0x2610), nullptr);
    curve.ReferencedOverlay().GetDcmElementSet().Find(0x5002, 0x2610)->AddWord(0x6004);
    EXPECT_EQ((*sequence->Items()->Find(0x5002, 0x2610)->Words())[0], 0x6004);
    EXPECT_NE(CDcmCurveModule().GetDcmElementSet().Find(0x5000, 0x2600), nullptr);
    EXPECT_NE(CDcmMultiFrameOverlayModule().GetDcmElementSet().Find(0x6000, 0x0051), nullptr);
}

TEST(RepeatingGroups, ASecondOverlayGoesIntoTheObjectAndComesBackOutOfIt)
{
    CSCImageIOD image;
    CDcmOverLayPlaneModule& first = image.Module<CDcmOverLayPlaneModule>();
    first.OverlayRows(1);
    CDcmOverLayPlaneModule second("6002");
    second.OverlayRows(2);
    image << second;
    EXPECT_EQ(first.OverlayRows(), 1);
    CByteArray stream;
    image.ExportFileFormat(stream);

    CSCImageIOD read;
    read.Import(stream);
    EXPECT_EQ(read.Module<CDcmOverLayPlaneModule>().OverlayRows(), 1);
    CDcmOverLayPlaneModule fresh("6002");
    read >> fresh;
    EXPECT_EQ(fresh.OverlayRows(), 2);
}

TEST(Palette, BlueTableIsReadAndSetUnderTwoNames)
{
    CDcmPalleteColorLookUpModule palette;
    palette.BluePaletteData(Words({1, 0xFFFF}));
    EXPECT_EQ(palette.BlueTableData().GetSize(), 2);
    EXPECT_EQ(palette.BlueTableData()[1], 0xFFFF);
    EXPECT_TRUE(palette.GreenPaletteData().IsEmpty());
    EXPECT_TRUE(palette.SegmentedRedPaletteData().IsEmpty());
    EXPECT_EQ((*palette.GetDcmElementSet().Find(0x0028, 0x1203)->Words())[0], 1);
}
