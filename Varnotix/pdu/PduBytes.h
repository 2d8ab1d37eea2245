/// Numbers in network byte order, and the layout of protocol data units.
#pragma once

#include "Varnotix/platform/Arrays.h"

namespace Varnotix
{

// Sizes and offsets in bytes (PS3.8 tables 9-11 to 9-26).
inline constexpr int kPduHeaderSize = 6;
inline constexpr int kAssociateFixedSize = 74;
inline constexpr int kShortPduSize = 10;
inline constexpr int kCalledTitleOffset = 10;
inline constexpr int kCallingTitleOffset = 26;
inline constexpr int kTitleSize = 16;
inline constexpr int kItemHeader = 4;
inline constexpr int kContextItemHeader = 8;
inline constexpr int kDataValueHeader = 6;

inline void PutBig16(BYTE* bytes, int value)
{
    bytes[0] = static_cast<BYTE>(static_cast<unsigned>(value) >> 8U);
    bytes[1] = static_cast<BYTE>(static_cast<unsigned>(value));
}

inline void PutBig32(BYTE* bytes, int value)
{
    PutBig16(bytes, static_cast<int>(static_cast<unsigned>(value) >> 16U));
    PutBig16(bytes + 2, value);
}

inline int Big16(const BYTE* bytes)
{
    return (bytes[0] << 8) | bytes[1];
}

inline DWORD Big32(const BYTE* bytes)
{
    return (static_cast<DWORD>(Big16(bytes)) << 16U) | static_cast<DWORD>(Big16(bytes + 2));
}

} // namespace Varnotix
