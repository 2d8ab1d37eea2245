// make_seeds FOLDER: writes the seeds of every target below the folder. Files that lie there stay.

#include "Seeds.h"
#include "Varnotix/registry/InitDicomDLL.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>

namespace
{

std::filesystem::path seedFolder;

void Put(const std::string& target, const std::string& name, const char* bytes, std::size_t size)
{
    std::filesystem::create_directories(seedFolder / target);
    std::ofstream file(seedFolder / target / name, std::ios::binary);
    file.exceptions(std::ios::badbit | std::ios::failbit);
    file.write(bytes, static_cast<std::streamsize>(size));
}

} // namespace

void PutSeed(const std::string& target, const std::string& name, const CByteArray& bytes)
{
    Put(target, name, reinterpret_cast<const char*>(bytes.GetData()), static_cast<std::size_t>(bytes.GetSize()));
}

void PutSeed(const std::string& target, const std::string& name, const std::string& text)
{
    Put(target, name, text.data(), text.size());
}

int main(int count, char** arguments)
try
{
    if (count != 2)
    {
        std::fputs("usage: make_seeds FOLDER\n", stderr);
        return 1;
    }
    seedFolder = arguments[1];
    InitDicomDLL();
    MakeStreamSeeds();
    MakeTypedSeeds();
    MakeRleSeeds();
    MakePduSeeds();
    MakeTextSeeds();
    return 0;
}
catch (const std::exception& failure)
{
    std::fprintf(stderr, "%s\n", failure.what());
    return 40;
}
