#include "Elements.h"
#include "RleFrames.h"
#include "Varnotix/element/DcmFrameList.h"
#include "Varnotix/iod/ImageIODs.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

CDcmElement& PixelData(CDcmImagePixelModule& module)
{
    return *module.GetDcmElementSet().Find(Varnotix::Tag::kPixelData);
}

/// The VR and the bytes of each frame: "OB 1 2 | 3 |".
std::string FramesOf(CDcmImagePixelModule& module)
{
    CObList list;
    module.GetPixelData(list);
    std::string text = Varnotix::VrText(PixelData(module).Vr());
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
    for (const int vr : {VR_NONE, VR_UN})
    {
        CDcmImagePixelModule module;
        module.GetDcmElementSet().Remove(Varnotix::Tag::kPixelData);
        if (vr == VR_UN)
        {
            module.GetDcmElementSet().Add(new CDcmElement(0x7FE0, 0x0010, vr));
        }
        module.SetPixelData(list);
        module.SetPixelData(bytes);
        module.SetPixelData(Words({1}));
        CObList frames(List({&bytes}));
        module.GetPixelData(frames);
        EXPECT_TRUE(frames.IsEmpty());
    }
}

TEST(PixelModule, SharesFramesWithTheStoreUntilOneIsWrittenTo)
{
    CSCImageIOD typed;
    PixelData(typed.Module<CDcmImagePixelModule>()).SetBytes(Repeated(7, 5000));
    typed.UpdateIod(true);
    CDcmImagePixelModule& module = typed.Module<CDcmImagePixelModule>();
    CSCImageIOD copy(typed);
    const auto bytesOf = [](const CDcmElement& element) { return element.Frames()->GetFrame(0)->Data(); };
    const CDcmElement& inStore = *typed.ElementStore().Find(Varnotix::Tag::kPixelData);
    EXPECT_EQ(bytesOf(inStore), bytesOf(PixelData(module)));
    EXPECT_EQ(bytesOf(inStore), bytesOf(PixelData(copy.Module<CDcmImagePixelModule>())));
    CObList frames;
    module.GetPixelData(frames); // Arrays to write to.
    static_cast<CByteArray&>(*frames.GetHead())[0] = 1;
    EXPECT_EQ(bytesOf(inStore)[0], 7);
    EXPECT_EQ(bytesOf(PixelData(module))[0], 1);
}
