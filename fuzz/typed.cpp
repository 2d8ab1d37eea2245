// Any bytes as a typed object: the first byte chooses the class and a syntax. Modules, frames and run length decoding
// after them.

#include "Objects.h"

#include <memory>

namespace
{

template <class IOD>
void Check(const CDcmCompositeIOD& composite, const char* uid)
{
    IOD typed(composite);
    typed.UpdateIod(true);
    typed.UpdateIod(false);
    IOD copy(typed);
    IOD assigned;
    assigned = copy;
    for (int i = 0; i < assigned.ModuleCount(); ++i)
    {
        CDcmModule& module = assigned.ModuleAt(i);
        AskForValues(module.GetDcmElementSet());
        Promise(module == copy.ModuleAt(i) || ReadsOtherwise(module.GetDcmElementSet()),
                "an assigned module equals its source");
    }
    assigned.Anonymize55("none");
    assigned.UpdateIod(false);
    if (auto* pixels = static_cast<CDcmImagePixelModule*>(typed.FindModule(RUNTIME_CLASS(CDcmImagePixelModule))))
    {
        // A picture may be as large as its header says; the fuzzer has no memory for the largest ones.
        if (pixels->Rows() * pixels->Columns() <= 1 << 16 && pixels->BitsAllocated() <= 64)
        {
            CObList frames;
            pixels->GetPixelData(frames);
            for (CObject* frame : frames)
            {
                CByteArray decoded;
                pixels->DcmRleDecode(static_cast<CByteArray&>(*frame), decoded);
            }
        }
    }
    CByteArray written;
    typed.ExportFileFormat(written);
    IOD again;
    again.Import(written);
    PromiseRoundTrip(again, uid);
    typed.EmptyIodModules();
    typed.UpdateIod(true);
}

using Checker = void (*)(const CDcmCompositeIOD&, const char*);

constexpr Checker kCheckers[] = {Check<CDcmCompositeIOD>,      Check<CCTImageIOD>, Check<CMRImageIOD>,
                                 Check<CCRImageIOD>,           Check<CNMImageIOD>, Check<CUSImageIOD>,
                                 Check<CUSMultiFrameImageIOD>, Check<CSCImageIOD>, Check<CSCMultiFrameImageIOD>,
                                 Check<CPatientInformationIOD>};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const SFreshDictionary fresh;
    CInput input(data, size);
    const unsigned choice = input.Take();
    CDcmCompositeIOD composite;
    composite.Import(input.Rest());
    if (composite.GetCount() > 0)
    {
        const char* uid = kSyntaxUids[choice / std::size(kCheckers) % std::size(kSyntaxUids)];
        kCheckers[choice % std::size(kCheckers)](composite, uid);
    }
    return 0;
}
