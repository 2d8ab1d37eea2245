#include "Guide.h"

namespace
{

CByteArray Gradient()
{
    CByteArray picture;
    picture.SetSize(64 * 64);
    for (int i = 0; i < picture.GetSize(); ++i)
    {
        picture[i] = static_cast<BYTE>(i / 64);
    }
    return picture;
}

void Decode(CDcmImagePixelModule& module, const CByteArray& frame, CByteArray& pixels)
{
    CByteArray input(frame);
    input.SetSize(frame.GetSize() + 64);
    module.DcmRleDecode(input, pixels);
}

} // namespace

void Frames()
{
    CDcmIOD object;
    ReadFile("guide.dcm", object);
    const CDcmElement* const pixelData = object.ElementStore().Find(Varnotix::Tag::kPixelData);
    if (pixelData != nullptr)
    {
        for (int i = 0; i < pixelData->Frames()->GetCount(); ++i)
        {
            const CDcmFrame& frame = *pixelData->Frames()->GetFrame(i);
            std::cout << "frame " << frame.Number() << ": " << frame.Size() << " bytes\n";
        }
    }

    CDcmImagePixelModule module;
    module.SamplesperPixel(1);
    module.PhotoMetricInterpretation("MONOCHROME2");
    module.Rows(64);
    module.Columns(64);
    module.BitsAllocated(8);
    CByteArray frame = Gradient();
    module.DcmRleEncode(frame);
    CByteArray pixels;
    Decode(module, frame, pixels);
    std::cout << pixels.GetSize() << " bytes of pixels in " << frame.GetSize() << '\n';

    CObList frames;
    frames.AddTail(&frame);
    frames.AddTail(&frame);
    module.SetPixelData(frames); // Copies the bytes; two frames now.
    object << module;
    std::cout << object.ElementStore().Find(Varnotix::Tag::kPixelData)->Frames()->GetCount() << " frames\n";
}
