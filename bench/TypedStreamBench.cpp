// What typed objects cost beside plain ones, and run length encoding beside that of two other toolkits. A sample of
// magnetic resonance takes part when VARNOTIX_SAMPLES names the folder of sample files.

#include "Inputs.h"
#include "Varnotix/Varnotix.h"
#include "Varnotix/platform/File.h"

#include <benchmark/benchmark.h>
#ifdef VARNOTIX_HAVE_DCMTK
#include <dcmtk/config/osconfig.h>
#include <dcmtk/dcmdata/dcrledec.h>
#include <dcmtk/dcmdata/dcrleenc.h>
#endif
#ifdef VARNOTIX_HAVE_GDCM
#include <gdcmDataElement.h>
#include <gdcmRLECodec.h>
#include <gdcmSequenceOfFragments.h>
#endif

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace
{
template <class OBJECT>
void Read(benchmark::State& state, const CByteArray& file)
{
    for ([[maybe_unused]] auto iteration : state)
    {
        OBJECT object;
        object.Import(file);
        benchmark::DoNotOptimize(object.GetCount());
    }
}

/// An object that is read once, changed in nothing and written each time.
template <class OBJECT>
void Write(benchmark::State& state, const CByteArray& file)
{
    OBJECT object;
    object.Import(file);
    for ([[maybe_unused]] auto iteration : state)
    {
        CByteArray bytes;
        object.ExportFileFormat(bytes);
        benchmark::DoNotOptimize(bytes.GetData());
    }
}

template <class OBJECT>
void Register(const std::string& input, const char* kind, const CByteArray& file)
{
    benchmark::RegisterBenchmark(("ReadAs/" + input + "/" + kind).c_str(),
                                 [file](benchmark::State& state) { Read<OBJECT>(state, file); });
    benchmark::RegisterBenchmark(("WriteAs/" + input + "/" + kind).c_str(),
                                 [file](benchmark::State& state) { Write<OBJECT>(state, file); });
}

void RegisterKinds(const std::string& input, const CByteArray& file)
{
    Register<CDcmIOD>(input, "Plain", file);
    Register<CDcmCompositeIOD>(input, "Composite", file);
    Register<CMRImageIOD>(input, "Typed", file);
}

constexpr unsigned kSide = 1024;

/// Rows of runs and single bytes in turn.
std::vector<BYTE> MakePicture()
{
    std::vector<BYTE> picture(kSide * kSide);
    for (std::size_t i = 0; i < picture.size(); ++i)
    {
        picture[i] = static_cast<BYTE>(i / 64 % 2 == 0 ? i / 24 : i);
    }
    return picture;
}

void CountPicture(benchmark::State& state)
{
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(kSide * kSide));
}

CDcmImagePixelModule MakeImage()
{
    CDcmImagePixelModule image;
    image.Rows(static_cast<WORD>(kSide));
    image.Columns(static_cast<WORD>(kSide));
    image.BitsAllocated(8);
    image.PhotoMetricInterpretation("MONOCHROME2");
    return image;
}

CByteArray MakeArray()
{
    const std::vector<BYTE> picture = MakePicture();
    CByteArray array;
    array.Assign(picture.data(), static_cast<int>(picture.size()));
    return array;
}

void EncodeWithVarnotix(benchmark::State& state)
{
    CDcmImagePixelModule image(MakeImage());
    const CByteArray picture = MakeArray();
    for ([[maybe_unused]] auto iteration : state)
    {
        CByteArray bytes(picture);
        image.DcmRleEncode(bytes);
        benchmark::DoNotOptimize(bytes.GetData());
    }
    CountPicture(state);
}

void DecodeWithVarnotix(benchmark::State& state)
{
    constexpr int kGivenUp = 64; // The decoder stops so many bytes before the end.
    CDcmImagePixelModule image(MakeImage());
    const CByteArray picture = MakeArray();
    CByteArray encoded(picture);
    image.DcmRleEncode(encoded);
    encoded.SetSize(encoded.GetSize() + kGivenUp);
    CByteArray pixels;
    for ([[maybe_unused]] auto iteration : state)
    {
        image.DcmRleDecode(encoded, pixels);
        benchmark::DoNotOptimize(pixels.GetData());
    }
    if (!(pixels == picture))
    {
        state.SkipWithError("decodes to another picture");
    }
    CountPicture(state);
}

#ifdef VARNOTIX_HAVE_DCMTK
std::vector<BYTE> EncodeDcmtk(const std::vector<BYTE>& picture)
{
    DcmRLEEncoder encoder(1);
    encoder.add(picture.data(), picture.size());
    encoder.flush();
    std::vector<BYTE> encoded(encoder.size());
    encoder.write(encoded.data());
    return encoded;
}

void EncodeWithDcmtk(benchmark::State& state)
{
    const std::vector<BYTE> picture = MakePicture();
    for ([[maybe_unused]] auto iteration : state)
    {
        benchmark::DoNotOptimize(EncodeDcmtk(picture).data());
    }
    CountPicture(state);
}

void DecodeWithDcmtk(benchmark::State& state)
{
    const std::vector<BYTE> picture = MakePicture();
    std::vector<BYTE> encoded = EncodeDcmtk(picture);
    for ([[maybe_unused]] auto iteration : state)
    {
        DcmRLEDecoder decoder(picture.size());
        decoder.decompress(encoded.data(), encoded.size());
        if (decoder.size() != picture.size())
        {
            state.SkipWithError("decodes to another size");
            break;
        }
        benchmark::DoNotOptimize(decoder.getOutputBuffer());
    }
    CountPicture(state);
}
#endif

#ifdef VARNOTIX_HAVE_GDCM
void Prepare(gdcm::RLECodec& codec)
{
    const unsigned sizes[] = {kSide, kSide, 1};
    codec.SetDimensions(sizes);
    codec.SetNumberOfDimensions(2);
    codec.SetPixelFormat(gdcm::PixelFormat(gdcm::PixelFormat::UINT8));
    codec.SetPhotometricInterpretation(gdcm::PhotometricInterpretation::MONOCHROME2);
    codec.SetPlanarConfiguration(0);
    codec.SetBufferLength(kSide * kSide);
}

gdcm::DataElement RawElement()
{
    const std::vector<BYTE> picture = MakePicture();
    gdcm::DataElement raw(gdcm::Tag(0x7FE0, 0x0010));
    raw.SetByteValue(reinterpret_cast<const char*>(picture.data()), static_cast<std::uint32_t>(picture.size()));
    return raw;
}

void EncodeWithGdcm(benchmark::State& state)
{
    const gdcm::DataElement raw = RawElement();
    for ([[maybe_unused]] auto iteration : state)
    {
        gdcm::RLECodec codec;
        Prepare(codec);
        gdcm::DataElement encoded;
        if (!codec.Code(raw, encoded))
        {
            state.SkipWithError("does not encode");
            break;
        }
        benchmark::DoNotOptimize(encoded.GetVL());
    }
    CountPicture(state);
}

void DecodeWithGdcm(benchmark::State& state)
{
    gdcm::RLECodec coder;
    Prepare(coder);
    gdcm::DataElement encoded;
    coder.Code(RawElement(), encoded);
    for ([[maybe_unused]] auto iteration : state)
    {
        gdcm::RLECodec codec;
        Prepare(codec);
        gdcm::DataElement pixels;
        if (!codec.Decode(encoded, pixels) || pixels.GetByteValue()->GetLength() != kSide * kSide)
        {
            state.SkipWithError("does not decode");
            break;
        }
        benchmark::DoNotOptimize(pixels.GetByteValue());
    }
    CountPicture(state);
}
#endif

[[maybe_unused]] const bool kRegistered = []
{
    RegisterKinds("heavy", MakeHeaderHeavy());
    const char* folder = std::getenv("VARNOTIX_SAMPLES");
    const std::string sample = std::string(folder != nullptr ? folder : "") + "/MR_small.dcm";
    if (std::filesystem::exists(sample))
    {
        CFile file(sample.c_str(), CFile::modeRead);
        CByteArray bytes;
        bytes.SetSize(static_cast<int>(file.GetLength()));
        file.Read(bytes.GetData(), static_cast<UINT>(bytes.GetSize()));
        RegisterKinds("mr", bytes);
    }
    benchmark::RegisterBenchmark("EncodePicture/Varnotix", EncodeWithVarnotix);
    benchmark::RegisterBenchmark("DecodePicture/Varnotix", DecodeWithVarnotix);
#ifdef VARNOTIX_HAVE_DCMTK
    benchmark::RegisterBenchmark("EncodePicture/DCMTK", EncodeWithDcmtk);
    benchmark::RegisterBenchmark("DecodePicture/DCMTK", DecodeWithDcmtk);
#endif
#ifdef VARNOTIX_HAVE_GDCM
    benchmark::RegisterBenchmark("EncodePicture/GDCM", EncodeWithGdcm);
    benchmark::RegisterBenchmark("DecodePicture/GDCM", DecodeWithGdcm);
#endif
    return true;
}();
} // namespace
