#include "Varnotix/pixel/DcmImagePixelModule.h"

#include "Varnotix/pixel/RleCodec.h"
#include "Varnotix/platform/Exceptions.h"
#include "Varnotix/registry/DcmRegistry.h"

#include <new>

namespace
{

CDcmElement* PixelData(const CDcmElementSet& set)
{
    return set.Find(Varnotix::Tag::kPixelData);
}

Varnotix::SRleImage RleImage(CDcmImagePixelModule& module)
{
    return {module.Rows(), module.Columns(), module.BitsAllocated(),
            CDcmRegistry::Global().PhotoMetricEnum(module.PhotoMetricInterpretation())};
}

/// Runs a coding step. It works in containers of its own, but a caller has one exception of memory to catch.
template <class CODE>
void Code(const CODE& code)
{
    try
    {
        code();
    }
    catch (const std::bad_alloc&)
    {
        throw CMemoryException();
    }
}

} // namespace

IMPLEMENT_DCM_INITIALIZED_CLASS(CDcmImagePixelModule, CDcmModule, InitializeModule)

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
    Code([&] { Varnotix::RleDecode(RleImage(*this), rle, pixels); });
}

void CDcmImagePixelModule::DcmRleEncode(CByteArray& data)
{
    Code([&] { Varnotix::RleEncode(RleImage(*this), data); });
}
