// Pixel Data, and the attributes that describe it (PS3.3 C.7.6.3, PS3.5 section 8).

#include "check/ObjectCheck.h"
#include "object/Attributes.h"
#include "picture/ImageHeader.h"
#include "rewrite/FileMeta.h"

namespace Tag = Varnotix::Tag;

namespace
{

void CheckBits(const SImageHeader& header, CFindings& findings)
{
    if (header.stored > header.allocated)
    {
        findings.Error(ShownTag(Tag::kBitsStored), "more bits than Bits Allocated");
    }
    else if (header.stored > 0 && header.highBit != header.stored - 1)
    {
        findings.Error(ShownTag(Tag::kHighBit), "not one less than Bits Stored");
    }
    if (header.allocated != 1 && header.allocated % 8 != 0)
    {
        findings.Error(ShownTag(Tag::kBitsAllocated), "neither 1 nor a multiple of 8");
    }
}

/// One sample per pixel for the interpretations of grey levels and palettes, three for the named colour spaces.
void CheckSamples(const SImageHeader& header, CFindings& findings)
{
    if (header.photometricNumber < PHOTOMETRIC_MONOCHROME1 || header.photometricNumber > PHOTOMETRIC_YBR_FULL_422)
    {
        return;
    }
    const int wanted = header.photometricNumber <= PHOTOMETRIC_PALETTE ? 1 : 3;
    if (header.samples != wanted)
    {
        CString what;
        what.Format("%d, where %s has %d", header.samples, static_cast<const char*>(header.photometric), wanted);
        findings.Error(ShownTag(Tag::kSamplesPerPixel), what);
    }
}

void CheckLength(const SImageHeader& header, const CDcmFrameList& frames, CFindings& findings)
{
    const int count = header.framesText.IsEmpty() ? 1 : WholeNumber(header.framesText).value_or(0);
    const std::uint64_t size = frames.TotalSize();
    // A frame of single bits may end within a byte, and the next one begins there.
    const std::uint64_t wanted = header.allocated == 1 ? (header.Pixels() * static_cast<std::uint64_t>(count) + 7) / 8
                                                       : header.FrameSize() * static_cast<std::uint64_t>(count);
    if (count > 0 && wanted > 0 && size != wanted && size != wanted + wanted % 2)
    {
        CString what;
        what.Format("%llu bytes, where the description of the image makes %llu", static_cast<unsigned long long>(size),
                    static_cast<unsigned long long>(wanted));
        findings.Error(ShownTag(Tag::kPixelData), what);
    }
}

} // namespace

void CheckPixels(const CDcmIOD& object, CFindings& findings)
{
    const CDcmElementSet& store = object.ElementStore();
    const CDcmElement* element = store.Find(Tag::kPixelData);
    const CDcmFrameList* frames = element != nullptr ? element->Frames() : nullptr;
    if (frames == nullptr)
    {
        return;
    }
    const CString mismatch = PixelDataMismatch(store, TextOf(store, Tag::kTransferSyntaxUid));
    if (!mismatch.IsEmpty())
    {
        findings.Error(ShownTag(Tag::kPixelData), mismatch);
    }
    const SImageHeader header = ReadImageHeader(object);
    CheckBits(header, findings);
    if (frames->ReadForm() == CDcmFrameList::FORM_NATIVE)
    {
        // Compressed pixel data says itself what it holds.
        CheckSamples(header, findings);
        CheckLength(header, *frames, findings);
    }
}
