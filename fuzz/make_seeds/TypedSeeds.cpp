// A filled object of each typed class, after the number that chooses the class.

#include "Seeds.h"
#include "Varnotix/Varnotix.h"

#include <functional>

namespace
{

constexpr int kSmallValue = 2; // Rows, columns and the like of a tiny picture.
constexpr int kItemValues = 1;

/// Gives an element a short value of its VR.
void FillElement(CDcmElement& element)
{
    if (element.IsPixelData() || element.Items() != nullptr)
    {
        return;
    }
    if (!element.AddText("1") && !element.AddInteger(kSmallValue))
    {
        CByteArray bytes;
        bytes.SetSize(8);
        element.SetRawBytes(bytes);
    }
}

void Fill(CDcmIOD& object)
{
    for (int i = 0; i < object.ModuleCount(); ++i)
    {
        CDcmElementSet& elements = object.ModuleAt(i).GetDcmElementSet();
        for (int k = 0; k < elements.GetCount(); ++k)
        {
            CDcmElement& element = *elements.GetAt(k);
            FillElement(element);
            CDcmElementSet* items = element.Items();
            for (int item = 0; items != nullptr && item < std::min(kItemValues, items->GetCount()); ++item)
            {
                FillElement(*items->GetAt(item));
            }
        }
    }
    if (auto* pixels = static_cast<CDcmImagePixelModule*>(object.FindModule(RUNTIME_CLASS(CDcmImagePixelModule))))
    {
        CByteArray frame;
        frame.SetSize(4 * kSmallValue * kSmallValue);
        pixels->BitsAllocated(8);
        pixels->PhotoMetricInterpretation("RGB");
        pixels->DcmRleEncode(frame);
        pixels->SetPixelData(frame);
        pixels->SetPixelData(frame);
    }
    if (auto* meta = static_cast<CDcmMetaFileInformation*>(object.FindModule(RUNTIME_CLASS(CDcmMetaFileInformation))))
    {
        meta->TransferSyntaxUID("1.2.840.10008.1.2.1");
    }
}

template <class IOD>
void PutTyped(int kind, const char* name)
{
    IOD object;
    Fill(object);
    CByteArray stream;
    object.ExportFileFormat(stream);
    CByteArray seed;
    seed.Add(static_cast<BYTE>(kind * 11)); // Of ten classes and three syntaxes, another syntax each time.
    seed.Append(stream);
    PutSeed("typed", name, seed);
}

} // namespace

void MakeTypedSeeds()
{
    PutTyped<CDcmCompositeIOD>(0, "composite");
    PutTyped<CCTImageIOD>(1, "ct");
    PutTyped<CMRImageIOD>(2, "mr");
    PutTyped<CCRImageIOD>(3, "cr");
    PutTyped<CNMImageIOD>(4, "nm");
    PutTyped<CUSImageIOD>(5, "us");
    PutTyped<CUSMultiFrameImageIOD>(6, "us_multi");
    PutTyped<CSCImageIOD>(7, "sc");
    PutTyped<CSCMultiFrameImageIOD>(8, "sc_multi");
    PutTyped<CPatientInformationIOD>(9, "patient");
}
