// Files a second that one thread and two threads read and write, each its own objects. The names are
// threads/OPERATION/TOOLKIT; only this library is measured.

#include "Inputs.h"
#include "Toolkits.h"

#include <benchmark/benchmark.h>

namespace
{

/// The first input: real MR files where there are samples.
const std::vector<CByteArray>& Files()
{
    return FilesOf(Inputs().front());
}

std::unique_ptr<CReadObject> ReadFile(const SToolkit& toolkit, const CByteArray& file)
{
    return toolkit.read({file.GetData(), static_cast<std::size_t>(file.GetSize()), &file});
}

void Read(benchmark::State& state, const SToolkit& toolkit)
{
    for ([[maybe_unused]] auto iteration : state)
    {
        for (const CByteArray& file : Files())
        {
            benchmark::DoNotOptimize(ReadFile(toolkit, file));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(Files().size()));
}

void Write(benchmark::State& state, const SToolkit& toolkit)
{
    std::vector<std::unique_ptr<CReadObject>> objects;
    for (const CByteArray& file : Files())
    {
        objects.push_back(ReadFile(toolkit, file));
    }
    for ([[maybe_unused]] auto iteration : state)
    {
        for (const auto& object : objects)
        {
            benchmark::DoNotOptimize(object->Write(nullptr));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(Files().size()));
}

[[maybe_unused]] const bool kRegistered = []
{
    static_cast<void>(Files()); // Made before there are threads.
    for (int rules = 0; rules < 2; ++rules)
    {
        const SToolkit& toolkit = Toolkits()[static_cast<std::size_t>(rules)];
        for (const auto& [name, run] : {std::pair("read", &Read), std::pair("write", &Write)})
        {
            const auto bench = [run = run, &toolkit](benchmark::State& state) { run(state, toolkit); };
            benchmark::RegisterBenchmark((std::string("threads/") + name + "/" + toolkit.name).c_str(), bench)
                ->Threads(1)
                ->Threads(2)
                ->UseRealTime();
        }
    }
    return true;
}();

} // namespace
