// What needs no stream to compare with: modules, ready-made objects, run length encoding and association PDUs.

#include "Inputs.h"
#include "Varnotix/Varnotix.h"

#include <benchmark/benchmark.h>

namespace
{
void ConstructModule(benchmark::State& state)
{
    for ([[maybe_unused]] auto iteration : state)
    {
        CDcmPatientModule patient;
        patient.PatientName("Doe^Jane");
        patient.PatientID("0001");
        benchmark::DoNotOptimize(patient.GetCount());
    }
}

/// A module's way into a store and back out into a second module.
void UpdateModule(benchmark::State& state)
{
    CDcmPatientModule source;
    source.PatientName("Doe^Jane");
    source.PatientID("0001");
    CDcmPatientModule target;
    for ([[maybe_unused]] auto iteration : state)
    {
        CDcmIOD iod;
        iod << source;
        iod >> target;
        benchmark::DoNotOptimize(target.GetCount());
    }
}

void ConstructObject(benchmark::State& state)
{
    for ([[maybe_unused]] auto iteration : state)
    {
        CMRImageIOD object;
        benchmark::DoNotOptimize(object.GetCount());
    }
}

/// As the plain object is read, with every module updated.
void ReadObject(benchmark::State& state)
{
    const CByteArray input = MakeHeaderHeavy();
    for ([[maybe_unused]] auto iteration : state)
    {
        CMRImageIOD object;
        object.Import(input);
        benchmark::DoNotOptimize(object.GetCount());
    }
}

/// A monochrome picture of short runs.
CByteArray MakePicture(CDcmImagePixelModule& image)
{
    constexpr WORD kSide = 1024;
    image.Rows(kSide);
    image.Columns(kSide);
    image.BitsAllocated(8);
    image.PhotoMetricInterpretation("MONOCHROME2");
    CByteArray picture;
    picture.SetSize(kSide * kSide);
    for (int i = 0; i < picture.GetSize(); ++i)
    {
        picture[i] = static_cast<BYTE>(i / 24);
    }
    return picture;
}

void EncodeRle(benchmark::State& state)
{
    CDcmImagePixelModule image;
    const CByteArray picture = MakePicture(image);
    for ([[maybe_unused]] auto iteration : state)
    {
        CByteArray bytes(picture);
        image.DcmRleEncode(bytes);
        benchmark::DoNotOptimize(bytes.GetData());
    }
    state.SetBytesProcessed(state.iterations() * picture.GetSize());
}

void DecodeRle(benchmark::State& state)
{
    CDcmImagePixelModule image;
    CByteArray encoded = MakePicture(image);
    const int size = encoded.GetSize();
    image.DcmRleEncode(encoded);
    for ([[maybe_unused]] auto iteration : state)
    {
        CByteArray pixels;
        image.DcmRleDecode(encoded, pixels);
        benchmark::DoNotOptimize(pixels.GetData());
    }
    state.SetBytesProcessed(state.iterations() * size);
}

/// A P-DATA-TF of 64 KiB, encoded and decoded.
void DataPdu(benchmark::State& state)
{
    constexpr int kDataPdu = 4;
    CByteArray data;
    data.SetSize(65536);
    for ([[maybe_unused]] auto iteration : state)
    {
        CDcmProtocolDataUnit sent;
        sent.PduType(kDataPdu);
        sent.AddPresentationDataValue(data, 1, 0);
        sent.Create();
        CByteArray bytes;
        sent.PduField(bytes);
        CDcmProtocolDataUnit received;
        received.Create(bytes);
        benchmark::DoNotOptimize(received.PduLength());
    }
    state.SetBytesProcessed(state.iterations() * data.GetSize());
}
} // namespace

BENCHMARK(ConstructModule);
BENCHMARK(UpdateModule);
BENCHMARK(ConstructObject);
BENCHMARK(ReadObject);
BENCHMARK(EncodeRle);
BENCHMARK(DecodeRle);
BENCHMARK(DataPdu);
