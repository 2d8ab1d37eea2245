// Reading and writing in memory, with every toolkit of the build in the same run. The names are
// OPERATION/INPUT/TOOLKIT; scripts/bench.sh makes a table of them.

#include "Inputs.h"
#include "Toolkits.h"
#include "Varnotix/element/DcmFrameList.h"
#include "Varnotix/iod/DcmIOD.h"

#include <benchmark/benchmark.h>

#include <map>

namespace
{
std::vector<SStream> StreamsOf(const SInput& input)
{
    std::vector<SStream> streams;
    for (const CByteArray& file : FilesOf(input))
    {
        streams.push_back({file.GetData(), static_cast<std::size_t>(file.GetSize()), &file});
    }
    return streams;
}

/// What a data set holds, at every depth. Group lengths and file meta information do not count, as toolkits make their
/// own.
struct SContent
{
    int elements = 0;
    std::size_t valueBytes = 0;

    void Add(const CDcmElementSet& set)
    {
        for (int i = 0; i < set.GetCount(); ++i)
        {
            const CDcmElement& element = *set.GetAt(i);
            if (element.Element() == 0 || element.Group() == 2)
            {
                continue;
            }
            ++elements;
            if (element.Items() != nullptr)
            {
                Add(*element.Items());
            }
            else
            {
                valueBytes += element.Frames() != nullptr ? static_cast<std::size_t>(element.Frames()->TotalSize())
                                                          : element.RawBytes().Size();
            }
        }
    }
};

SContent ContentOf(const CByteArray& file)
{
    CDcmIOD iod;
    iod.Import(file);
    SContent content;
    content.Add(iod.ElementStore());
    return content;
}

/// A toolkit that leaves part of a stream unread would look fast: what it writes must hold every element of the stream
/// that it has read, and all of its value bytes but for padding.
bool ReadsAll(const SToolkit& toolkit, const SStream& stream)
{
    const auto object = toolkit.read(stream);
    std::string written;
    if (object == nullptr || object->Write(&written) == 0)
    {
        return false;
    }
    CByteArray file;
    file.AppendRaw(reinterpret_cast<const BYTE*>(written.data()), static_cast<int>(written.size()));
    const SContent wanted = ContentOf(*stream.array);
    const SContent found = ContentOf(file);
    return found.elements == wanted.elements && found.valueBytes >= wanted.valueBytes - wanted.valueBytes / 100;
}

bool ReadsAll(const SInput& input, const SToolkit& toolkit)
{
    static std::map<std::string, bool> known;
    const auto [found, isNew] = known.try_emplace(input.name + toolkit.name, true);
    if (isNew)
    {
        for (const SStream& stream : StreamsOf(input))
        {
            found->second = found->second && ReadsAll(toolkit, stream);
        }
    }
    return found->second;
}

void CountFiles(benchmark::State& state, const std::vector<SStream>& streams)
{
    std::size_t size = 0;
    for (const SStream& stream : streams)
    {
        size += stream.size;
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(streams.size()));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size));
}

void Read(benchmark::State& state, const SInput& input, const SToolkit& toolkit)
{
    const std::vector<SStream> streams = StreamsOf(input);
    if (!ReadsAll(input, toolkit))
    {
        state.SkipWithError("does not read all of the input");
        return;
    }
    for ([[maybe_unused]] auto iteration : state)
    {
        for (const SStream& stream : streams)
        {
            benchmark::DoNotOptimize(toolkit.read(stream));
        }
    }
    CountFiles(state, streams);
}

void Write(benchmark::State& state, const SInput& input, const SToolkit& toolkit)
{
    const std::vector<SStream> streams = StreamsOf(input);
    if (!ReadsAll(input, toolkit))
    {
        state.SkipWithError("does not read all of the input");
        return;
    }
    std::vector<std::unique_ptr<CReadObject>> objects;
    for (const SStream& stream : streams)
    {
        objects.push_back(toolkit.read(stream));
    }
    for ([[maybe_unused]] auto iteration : state)
    {
        for (const auto& object : objects)
        {
            benchmark::DoNotOptimize(object->Write(nullptr));
        }
    }
    CountFiles(state, streams);
}

/// The cost of one memory copy of the bulk input, to compare with.
void Copy(benchmark::State& state, const SInput& input)
{
    const std::vector<SStream> streams = StreamsOf(input);
    for ([[maybe_unused]] auto iteration : state)
    {
        const CByteArray copy(*streams.front().array);
        benchmark::DoNotOptimize(copy.GetData());
        benchmark::ClobberMemory();
    }
    CountFiles(state, streams);
}

[[maybe_unused]] const bool kRegistered = []
{
    for (const SInput& input : Inputs())
    {
        for (const SToolkit& toolkit : Toolkits())
        {
            const std::string place = "/" + input.name + "/" + toolkit.name;
            benchmark::RegisterBenchmark(("read" + place).c_str(),
                                         [&](benchmark::State& state) { Read(state, input, toolkit); });
            benchmark::RegisterBenchmark(("write" + place).c_str(),
                                         [&](benchmark::State& state) { Write(state, input, toolkit); });
        }
        if (input.name.starts_with("bulk"))
        {
            benchmark::RegisterBenchmark(("copy/" + input.name + "/memcpy").c_str(),
                                         [&](benchmark::State& state) { Copy(state, input); });
        }
    }
    return true;
}();
} // namespace
