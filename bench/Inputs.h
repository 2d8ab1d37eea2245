/// The objects that the benchmarks read and write, made in memory byte by byte, so that no toolkit makes them.
#pragma once

#include "Varnotix/platform/Arrays.h"

#include <functional>
#include <string>
#include <vector>

/// A named set of PS3.10 files in memory; most sets hold one file.
struct SInput
{
    std::string name;
    std::function<std::vector<CByteArray>()> make;
};

/// The inputs that every toolkit reads and writes.
const std::vector<SInput>& Inputs();

/// The files of an input, made at the first call.
const std::vector<CByteArray>& FilesOf(const SInput& input);

/// About 250 elements of mixed VRs, some private, three short sequences, 8 KB of pixel data.
CByteArray MakeHeaderHeavy();
/// One frame of pixel data.
CByteArray MakeBulk(std::size_t frameSize);
/// One sequence of items that hold two UIDs each.
CByteArray MakeItems(int count);
/// Sequences in one another.
CByteArray MakeNested(int depth);
/// Private elements, a short text each.
CByteArray MakeFlat(int count);
/// Encapsulated pixel data of short frames, with an offset table.
CByteArray MakeFrames(int count);
