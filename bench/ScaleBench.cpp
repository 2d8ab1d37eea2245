// How the time grows with the input: each pair doubles it.

#include "Inputs.h"
#include "Varnotix/iod/DcmIOD.h"

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
} // namespace

BENCHMARK_CAPTURE(RoundTrip, elements, MakeFlat)->Arg(50000)->Arg(100000);
BENCHMARK_CAPTURE(RoundTrip, items, MakeItems)->Arg(20000)->Arg(40000);
BENCHMARK_CAPTURE(RoundTrip, nesting, MakeNested)->Arg(30)->Arg(60);
BENCHMARK_CAPTURE(RoundTrip, frames, MakeFrames)->Arg(4000)->Arg(8000);
