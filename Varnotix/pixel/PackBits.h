/// PackBits, the byte-oriented compression of run length encoded segments (PS3.5 Annex G.3).
#pragma once

#include "Varnotix/platform/Types.h"

#include <cstddef>
#include <span>
#include <vector>

namespace Varnotix
{

/// Decodes a segment into every stride-th byte of the output, which the caller has zeroed.
/// @param input the segment and all that follows it: literal bytes are taken without regard to the segment's end, but
///        never from outside the input.
/// @param segmentSize bytes of the segment; decoding ends when they are used up.
/// @param capacity bytes to write at most.
/// @return true when the whole capacity was written.
bool DecodePackBits(std::span<const BYTE> input, std::size_t segmentSize, BYTE* output, std::size_t capacity,
                    std::size_t stride);

/// Encodes bytes. The encoder has room for as many bytes as the input has; when it runs out of room, it goes on at the
/// start of its output. The result has the length of all that was produced, but only what lies in the room is kept:
/// input that does not shrink gives a damaged result.
std::vector<BYTE> EncodePackBits(std::span<const BYTE> input);

} // namespace Varnotix
