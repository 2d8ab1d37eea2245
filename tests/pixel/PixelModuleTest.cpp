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

TEST(PixelModule, AddsBytesToByteDataOnlyAndWordsToAny)
{
    CDcmImagePixelModule module;
    PixelData(module).ForcePixelVr(VR_OB);
    module.SetPixelData(Bytes({1, 2}));
    module.SetPixelData(Bytes({3}));
    EXPECT_EQ(FramesOf(module), (Frames{{1, 2}, {3}}));
    EXPECT_EQ(PixelData(module).Frames()->GetFrame(1)->Number(), 1);
    PixelData(module).ForcePixelVr(VR_OW);
    module.SetPixelData(Bytes({4}));
    EXPECT_EQ(FramesOf(module), (Frames{{1, 2}, {3}}));
    EXPECT_EQ(PixelData(module).Vr(), VR_OW);
    // Words are added low byte first, and make the VR OW.
    PixelData(module).ForcePixelVr(VR_OB);
    module.SetPixelData(Words({0x0102, 0x0304}));
    EXPECT_EQ(FramesOf(module), (Frames{{1, 2}, {3}, {2, 1, 4, 3}}));
    EXPECT_EQ(PixelData(module).Vr(), VR_OW);
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
