/// The toolkits that are measured, all through the same two operations.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

class CByteArray;

/// A PS3.10 file in memory. The array is the one that holds the bytes.
struct SStream
{
    const unsigned char* data;
    std::size_t size;
    const CByteArray* array;
};

/// An object as a toolkit holds it after it has read all of a stream, values included.
class CReadObject
{
public:
    virtual ~CReadObject() = default;

    /// Writes the object as a PS3.10 file in explicit VR little endian, or as it was encapsulated, into fresh memory.
    /// @param copy receives the bytes when not null.
    /// @return the size of what was written; 0 for a failure.
    virtual std::size_t Write(std::string* copy) = 0;
};

struct SToolkit
{
    const char* name;
    /// Null for a stream that the toolkit refuses.
    std::unique_ptr<CReadObject> (*read)(const SStream& stream);
};

std::unique_ptr<CReadObject> ReadWithDcmtk(const SStream& stream);
std::unique_ptr<CReadObject> ReadWithGdcm(const SStream& stream);

/// Those of the build: this library first, by its classic and then by the standard stream rules.
const std::vector<SToolkit>& Toolkits();
