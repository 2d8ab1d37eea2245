/// A file in the current folder, for what the library reads by path. Each target runs in a folder of its own.
#pragma once

#include "Promise.h"

#include <fstream>

/// Writes the bytes to the file.
/// @return its name.
inline const char* ScratchFile(const std::uint8_t* data, std::size_t size)
{
    static constexpr const char* kName = "input.txt";
    std::remove(kName); // Cutting a file short makes some file systems write it to the disk each time.
    std::ofstream file(kName, std::ios::binary);
    file.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    Promise(file.flush().good(), "the scratch file can be written");
    return kName;
}
