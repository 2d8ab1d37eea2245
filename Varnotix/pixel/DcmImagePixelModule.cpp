#include "Varnotix/pixel/DcmImagePixelModule.h"

#include "Varnotix/pixel/RleCodec.h"
#include "Varnotix/registry/DcmRegistry.h"

namespace
{

CDcmElement* PixelData(const CDcmElementSet& set)
{
    return set.Find(kPixelDataGroup, kPixelDataElement);
}

SRleImage RleImage(CDcmImagePixelModule& module)
{
    return {module.Rows(), module.Columns(), module.BitsAllocated(),
            CDcmRegistry::Global().PhotoMetricEnum(module.PhotoMetricInterpretation())};
}

} // namespace

void CDcmImagePixelModule::GetPixelData(CObList& frames)
{
    frames.RemoveAll();
    if (CDcmElement* element = PixelData(GetDcmElementSet()))
    {
        element->GetFrames(frames);
    }
}

void CDcmImagePixelModule::SetPixelData(CObList& frames)
{
    if (CDcmElement* element = PixelData(GetDcmElementSet()))
    {
        element->SetFrames(frames);
    }
}

void CDcmImagePixelModule::SetPixelData(const CByteArray& bytes)
{
    if (CDcmElement* element = PixelData(GetDcmElementSet()))
    {
        element->SetBytes(bytes);
    }
}

void CDcmImagePixelModule::SetPixelData(const CWordArray& words)
{
    if (CDcmElement* element = PixelData(GetDcmElementSet()))
    {
        element->SetWords(words);
    }
}

void CDcmImagePixelModule::DcmRleDecode(const CByteArray& rle, CByteArray& pixels)
{
    RleDecode(RleImage(*this), rle, pixels);
}

void CDcmImagePixelModule::DcmRleEncode(CByteArray& data)
{
    RleEncode(RleImage(*this), data);
}
