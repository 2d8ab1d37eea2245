/// A file for what the library reads by path. Where the system has files without a folder, it is one of these: a file
/// on a disk would take most of the time of a run.
#pragma once

#include "Promise.h"

#if defined(__linux__)

#include <string>
#include <sys/mman.h>
#include <unistd.h>

/// Writes the bytes to the file.
/// @return its path.
inline const char* ScratchFile(const std::uint8_t* data, std::size_t size)
{
    static const int file = ::memfd_create("input", 0);
    static const std::string path = "/proc/self/fd/" + std::to_string(file);
    Promise(::ftruncate(file, 0) == 0 && ::pwrite(file, data, size, 0) == static_cast<ssize_t>(size),
            "the scratch file can be written");
    return path.c_str();
}

#else

#include <fstream>

inline const char* ScratchFile(const std::uint8_t* data, std::size_t size)
{
    static constexpr const char* kName = "input.txt";
    std::ofstream file(kName, std::ios::binary);
    file.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    Promise(file.flush().good(), "the scratch file can be written");
    return kName;
}

#endif
