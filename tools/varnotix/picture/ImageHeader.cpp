#include "picture/ImageHeader.h"

#include "object/Attributes.h"

namespace Tag = Varnotix::Tag;

SImageHeader ReadImageHeader(const CDcmIOD& object)
{
    const CDcmElementSet& store = object.ElementStore();
    SImageHeader header;
    header.samples = WordOf(store, Tag::kSamplesPerPixel).value_or(0);
    header.rows = WordOf(store, Tag::kRows).value_or(0);
    header.columns = WordOf(store, Tag::kColumns).value_or(0);
    header.allocated = WordOf(store, Tag::kBitsAllocated).value_or(0);
    header.stored = WordOf(store, Tag::kBitsStored).value_or(header.allocated);
    header.highBit = WordOf(store, Tag::kHighBit).value_or(header.stored - 1);
    header.isSigned = WordOf(store, Tag::kPixelRepresentation).value_or(0) == 1;
    header.byPlane = WordOf(store, Tag::kPlanarConfiguration).value_or(0) == 1;
    header.framesText = TextOf(store, Tag::kNumberOfFrames);
    header.photometric = TextOf(store, Tag::kPhotometricInterpretation);
    header.photometricNumber = CDcmRegistry::Global().PhotoMetricEnum(header.photometric);
    if (header.photometricNumber != PHOTOMETRIC_UNKNOWN)
    {
        header.photometric = CDcmRegistry::Global().PhotoMetricString(header.photometricNumber);
    }
    header.syntax = object.IodSyntax();
    return header;
}

std::uint64_t SImageHeader::FrameBits() const
{
    // Two pixels share their chrominance: four bytes instead of six.
    const int bytesForTwo = photometricNumber == PHOTOMETRIC_YBR_FULL_422 && samples == 3 ? 2 : samples;
    // Factors of 16 bits each: the product cannot pass 64 bits.
    return Pixels() * static_cast<std::uint64_t>(bytesForTwo) * static_cast<std::uint64_t>(allocated);
}
