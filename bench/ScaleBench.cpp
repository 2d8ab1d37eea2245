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

// The first two sizes stay in the cache of one core, the last two in none.
BENCHMARK_CAPTURE(RoundTrip, elements, MakeFlat)
    ->Arg(2500)
    ->Arg(5000)
    ->Arg(50000)
    ->Arg(100000)
    ->Arg(400000)
    ->Arg(800000);
BENCHMARK_CAPTURE(RoundTrip, items, MakeItems)->Arg(1000)->Arg(2000)->Arg(20000)->Arg(40000)->Arg(160000)->Arg(320000);
BENCHMARK_CAPTURE(RoundTrip, nesting, MakeNested)->Arg(30)->Arg(60);
BENCHMARK_CAPTURE(RoundTrip, frames, MakeFrames)->Arg(4000)->Arg(8000);
