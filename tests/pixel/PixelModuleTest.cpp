#include "Elements.h"
#include "RleFrames.h"
#include "Varnotix/element/DcmFrameList.h"
#include "Varnotix/iod/ImageIODs.h"
#include "Varnotix/registry/DcmRegistry.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

CDcmElement& PixelData(CDcmImagePixelModule& module)
{
    return *module.GetDcmElementSet().Find(kPixelDataGroup, kPixelDataElement);
}

/// The VR and the bytes of each frame: "OB 1 2 | 3 |".
std::string FramesOf(CDcmImagePixelModule& module)
{
    CObList list;
    module.GetPixelData(list);
    std::string text = VrText(PixelData(module).Vr());
    int number = 0;
    for (CObject* array : list)
    {
        EXPECT_TRUE(array->IsKindOf(RUNTIME_CLASS(CByteArray)));
        EXPECT_EQ(PixelData(module).Frames()->GetFrame(number)->Number(), number);
        for (const int byte : Numbers(static_cast<CByteArray&>(*array)))
        {
            text += " " + std::to_string(byte);
        }
        text += " |";
        ++number;
    }
    return text;
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
    std::for_each(objects.begin(), objects.end(), [&](CObject* object) { list.AddTail(object); });
    return list;
}

} // namespace

TEST(PixelModule, AddsBytesToByteDataOnlyAndWordsToAny)
{
    CDcmImagePixelModule module;
    PixelData(module).ForcePixelVr(VR_OB);
    module.SetPixelData(Bytes({1, 2}));
    module.SetPixelData(Bytes({3}));
    EXPECT_EQ(FramesOf(module), "OB 1 2 | 3 |");
    PixelData(module).ForcePixelVr(VR_OW);
    module.SetPixelData(Bytes({4}));
    EXPECT_EQ(FramesOf(module), "OW 1 2 | 3 |");
    // Words are added low byte first, and make the VR OW.
    PixelData(module).ForcePixelVr(VR_OB);
    module.SetPixelData(Words({0x0102, 0x0304}));
    EXPECT_EQ(FramesOf(module), "OW 1 2 | 3 | 2 1 4 3 |");
}

TEST(PixelModule, ReplacesAllFramesByAListOfOneKind)
{
    CDcmImagePixelModule module;
    module.SetPixelData(Words({9}));
    CByteArray first(Bytes({1, 2}));
    CByteArray second(Bytes({3}));
    CWordArray words(Words({0x0506}));
    for (CObject* other : std::initializer_list<CObject*>{&words, nullptr, &module})
    {
        CObList mixed(List({&first, other}));
        module.SetPixelData(mixed);
        EXPECT_EQ(FramesOf(module), "OW 9 0 |");
    }
    CObList bytes(List({&first, &second}));
    module.SetPixelData(bytes);
    EXPECT_EQ(FramesOf(module), "OB 1 2 | 3 |");
    CObList own;
    module.GetPixelData(own);
    own.AddTail(&first);
    module.SetPixelData(own); // Its own frames and one more.
    EXPECT_EQ(FramesOf(module), "OB 1 2 | 3 | 1 2 |");
    CObList wordLists(List({&words}));
    module.SetPixelData(wordLists);
    EXPECT_EQ(FramesOf(module), "OW 6 5 |");
    CObList none;
    module.SetPixelData(none);
    EXPECT_EQ(FramesOf(module), "OB");
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
