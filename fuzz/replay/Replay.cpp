// Feeds every file of the folders to the target that it is linked with, whole, cut short and with one byte changed: the
// fuzzers' seeds, run as a test. An input is handed over in a block of its own size, so that a sanitizer sees one byte
// too many.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>
#include <utility>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace
{

// Longer seeds are cut short or changed in as many places, spread over their length.
constexpr std::size_t kPlaces = 32;

void Feed(const std::vector<char>& bytes, std::size_t size)
{
    const std::unique_ptr<std::uint8_t[]> block(new std::uint8_t[size]);
    std::copy_n(bytes.begin(), size, block.get());
    LLVMFuzzerTestOneInput(block.get(), size);
}

void Replay(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    Feed(bytes, bytes.size());
    const std::size_t step = bytes.size() / kPlaces + 1;
    for (std::size_t place = 0; place < bytes.size(); place += step)
    {
        Feed(bytes, place);
        const char kept = std::exchange(bytes[place], static_cast<char>(~bytes[place]));
        Feed(bytes, bytes.size());
        bytes[place] = kept;
    }
}

} // namespace

int main(int count, char** arguments)
try
{
    std::set<std::filesystem::path> seeds;
    for (int i = 1; i < count; ++i)
    {
        for (const auto& entry : std::filesystem::directory_iterator(arguments[i]))
        {
            seeds.insert(entry.path());
        }
    }
    for (const std::filesystem::path& seed : seeds)
    {
        // Printed before it is fed: the last line names the seed of a crash.
        std::printf("%s\n", seed.filename().string().c_str());
        std::fflush(stdout);
        Replay(seed);
    }
    std::printf("%d seeds\n", static_cast<int>(seeds.size()));
    return seeds.empty() ? 1 : 0;
}
catch (const std::exception& failure)
{
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
}
