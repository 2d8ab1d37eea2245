// Objects as text: written and read back.

#include "Inputs.h"
#include "Varnotix/iod/DcmIOD.h"
#include "Varnotix/script/DcmAttributeScript.h"

#include <benchmark/benchmark.h>

namespace
{
constexpr int kLines = 65536;

CStringArray Document(const CByteArray& input)
{
    CDcmIOD iod;
    iod.Import(input);
    CStringArray lines;
    iod.Export(lines);
    return lines;
}

void Export(benchmark::State& state, const CByteArray& input)
{
    CDcmIOD iod;
    iod.Import(input);
    CStringArray lines;
    for ([[maybe_unused]] auto iteration : state)
    {
        iod.Export(lines);
        benchmark::DoNotOptimize(lines.GetData());
    }
    state.SetItemsProcessed(state.iterations() * lines.GetSize());
}

void Import(benchmark::State& state, const CByteArray& input)
{
    const CStringArray lines = Document(input);
    for ([[maybe_unused]] auto iteration : state)
    {
        CDcmAttributeScript script;
        CDcmAttributeModule module;
        script.Run(lines, module);
        if (!script.Notes().empty())
        {
            state.SkipWithError("the document was not read whole");
        }
        benchmark::DoNotOptimize(module.GetCount());
    }
    state.SetItemsProcessed(state.iterations() * lines.GetSize());
}

void ExportText(benchmark::State& state)
{
    Export(state, MakeFlat(kLines));
}

void ImportText(benchmark::State& state)
{
    Import(state, MakeFlat(kLines));
}

/// A document of items, each of which is a nested module on its way.
void ImportItems(benchmark::State& state)
{
    Import(state, MakeNested(60));
}

/// Written and read once an iteration; each pair doubles the lines.
void Lines(benchmark::State& state)
{
    const CByteArray input = MakeFlat(static_cast<int>(state.range(0)));
    CDcmIOD iod;
    iod.Import(input);
    for ([[maybe_unused]] auto iteration : state)
    {
        CStringArray lines;
        iod.Export(lines);
        CDcmAttributeScript script;
        CDcmAttributeModule module;
        script.Run(lines, module);
        benchmark::DoNotOptimize(module.GetCount());
    }
}
} // namespace

BENCHMARK(ExportText);
BENCHMARK(ImportText);
BENCHMARK(ImportItems);
BENCHMARK(Lines)->Name("RoundTrip/lines")->Arg(kLines)->Arg(2 * kLines);
