// The peak of memory that a bulk object needs above what the caller held before. Each measurement takes place in a
// process of its own, as the peak of a process never falls.

#include "Inputs.h"
#include "Toolkits.h"
#include "Varnotix/iod/ImageIODs.h"
#include "Varnotix/platform/Archive.h"
#include "Varnotix/platform/File.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
const SInput& Bulk()
{
    static const SInput bulk{"bulk_128MiB", [] { return std::vector<CByteArray>{MakeBulk(std::size_t{128} << 20)}; }};
    return bulk;
}

double ResidentBytes()
{
    std::ifstream statm("/proc/self/statm");
    double total = 0;
    double resident = 0;
    statm >> total >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

/// Runs the work and returns by how many bytes memory rose above what it was before; -1 for a failure.
double PeakOf(const std::function<bool()>& work)
{
    const double before = ResidentBytes();
    if (!work())
    {
        return -1;
    }
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) * 1024 - before;
}

double PeakInChild(const std::function<double()>& measure)
{
    int ends[2];
    if (pipe(ends) != 0)
    {
        return -1;
    }
    const pid_t child = fork();
    if (child == 0)
    {
        const double peak = measure();
        const bool sent = write(ends[1], &peak, sizeof peak) == sizeof peak;
        _exit(sent ? 0 : 1);
    }
    close(ends[1]);
    double peak = -1;
    if (child < 0 || read(ends[0], &peak, sizeof peak) != sizeof peak)
    {
        peak = -1;
    }
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return peak;
}

/// Reports the peak in sizes of the bulk input.
void Report(benchmark::State& state, const std::function<double()>& measure)
{
    const auto size = static_cast<double>(FilesOf(Bulk()).front().GetSize());
    double peak = 0;
    for ([[maybe_unused]] auto iteration : state)
    {
        peak = PeakInChild(measure);
    }
    if (peak < 0)
    {
        state.SkipWithError("failed");
    }
    state.counters["peak"] = peak / size;
}

void PeakOfRead(benchmark::State& state, const SToolkit& toolkit)
{
    const CByteArray& file = FilesOf(Bulk()).front();
    const SStream stream{file.GetData(), static_cast<std::size_t>(file.GetSize()), &file};
    Report(state, [&] { return PeakOf([&] { return toolkit.read(stream) != nullptr; }); });
}

/// With modules that hold the pixel data too.
void PeakOfTypedRead(benchmark::State& state)
{
    Report(state,
           []
           {
               return PeakOf(
                   []
                   {
                       CMRImageIOD object;
                       object.Import(FilesOf(Bulk()).front());
                       return object.GetCount() > 0;
                   });
           });
}

/// Both through the archive of a file, as a host does.
bool ReadFile(CDcmIOD& iod, const std::string& path)
{
    CFile file(path.c_str(), CFile::modeRead);
    CArchive archive(&file, CArchive::load);
    iod.Serialize(archive);
    return iod.GetCount() > 0;
}

bool WriteFile(CDcmIOD& iod, const std::string& path)
{
    CFile file(path.c_str(), CFile::modeCreate | CFile::modeWrite);
    CArchive archive(&file, CArchive::store);
    iod.Serialize(archive);
    archive.Close();
    return file.GetLength() > 0;
}

/// A file that goes with this object.
class CScratchFile
{
public:
    CScratchFile() : m_path(std::filesystem::temp_directory_path() / ("bench-" + std::to_string(getpid()) + ".dcm")) {}
    ~CScratchFile() { std::remove(m_path.c_str()); }
    CScratchFile(const CScratchFile&) = delete;
    CScratchFile& operator=(const CScratchFile&) = delete;

    std::string Path() const { return m_path.string(); }

private:
    std::filesystem::path m_path;
};

void PeakOfFileWrite(benchmark::State& state)
{
    const CScratchFile scratch;
    Report(state,
           [&]
           {
               CDcmIOD iod;
               iod.Import(FilesOf(Bulk()).front());
               return PeakOf([&] { return WriteFile(iod, scratch.Path()); });
           });
}

void PeakOfFileRead(benchmark::State& state)
{
    const CScratchFile scratch;
    CDcmIOD iod;
    iod.Import(FilesOf(Bulk()).front());
    WriteFile(iod, scratch.Path());
    iod.RemoveAll();
    Report(state,
           [&]
           {
               return PeakOf(
                   [&]
                   {
                       CDcmIOD read;
                       return ReadFile(read, scratch.Path());
                   });
           });
}

[[maybe_unused]] const bool kRegistered = []
{
    for (const SToolkit& toolkit : Toolkits())
    {
        benchmark::RegisterBenchmark((std::string("memory/read_bulk/") + toolkit.name).c_str(),
                                     [&](benchmark::State& state) { PeakOfRead(state, toolkit); })
            ->Iterations(1)
            ->Repetitions(1);
    }
    benchmark::RegisterBenchmark("memory/read_bulk_typed/varnotix", PeakOfTypedRead)->Iterations(1)->Repetitions(1);
    benchmark::RegisterBenchmark("memory/read_bulk_file/varnotix", PeakOfFileRead)->Iterations(1)->Repetitions(1);
    benchmark::RegisterBenchmark("memory/write_bulk_file/varnotix", PeakOfFileWrite)->Iterations(1)->Repetitions(1);
    return true;
}();
} // namespace
