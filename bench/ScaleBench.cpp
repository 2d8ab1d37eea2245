// How the time grows with the input: each pair doubles it. Typed construction stands here too, as it needs no input.

#include "Inputs.h"
#include "Varnotix/iod/DcmIOD.h"
#include "Varnotix/modules/DcmPatientModule.h"

#include <benchmark/benchmark.h>

namespace
{
/// Reads and writes once an iteration.
void RoundTrip(benchmark::State& state, CByteArray (*make)(int))
{
    const CByteArray input = make(static_cast<int>(state.range(0)));
    for ([[maybe_unused]] auto iteration : state)
    {
        CDcmIOD iod;
        iod.Import(input);
        CByteArray output;
        iod.ExportFileFormat(output);
        benchmark::DoNotOptimize(output.GetData());
    }
}

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
} // namespace

BENCHMARK_CAPTURE(RoundTrip, elements, MakeFlat)->Arg(50000)->Arg(100000);
BENCHMARK_CAPTURE(RoundTrip, items, MakeItems)->Arg(20000)->Arg(40000);
BENCHMARK_CAPTURE(RoundTrip, nesting, MakeNested)->Arg(30)->Arg(60);
BENCHMARK_CAPTURE(RoundTrip, frames, MakeFrames)->Arg(4000)->Arg(8000);
BENCHMARK(ConstructModule);
BENCHMARK(UpdateModule);
