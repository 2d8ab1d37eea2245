#include "picture/ImageHeader.h"

#include "object/Attributes.h"

SImageHeader ReadImageHeader(const CDcmIOD& object)
{
    const CDcmElementSet& store = object.ElementStore();
    SImageHeader header;
    header.samples = WordOf(store, 0x00280002).value_or(0);
    header.rows = WordOf(store, 0x00280010).value_or(0);
    header.columns = WordOf(store, 0x00280011).value_or(0);
    header.allocated = WordOf(store, 0x00280100).value_or(0);
    header.stored = WordOf(store, 0x00280101).value_or(header.allocated);
    header.highBit = WordOf(store, 0x00280102).value_or(header.stored - 1);
    header.isSigned = WordOf(store, 0x00280103).value_or(0) == 1;
    header.byPlane = WordOf(store, 0x00280006).value_or(0) == 1;
    header.framesText = TextOf(store, 0x00280008);
    header.photometric = TextOf(store, 0x00280004);
    header.photometricNumber = CDcmRegistry::Global().PhotoMetricEnum(header.photometric);
    if (header.photometricNumber != PHOTOMETRIC_UNKNOWN)
    {
        header.photometric = CDcmRegistry::Global().PhotoMetricString(header.photometricNumber);
    }
    header.syntax = object.IodSyntax();
    return header;
}

std::uint64_t SImageHeader::FrameSize() const
{
    // Two pixels share their chrominance: four bytes instead of six.
    const int bytesForTwo = photometricNumber == PHOTOMETRIC_YBR_FULL_422 && samples == 3 ? 2 : samples;
    // Factors of 16 bits each: the product cannot pass 64 bits.
    return (Pixels() * static_cast<std::uint64_t>(bytesForTwo) * static_cast<std::uint64_t>(allocated) + 7) / 8;
}
