/// Description of the pixel matrix (PS3.3 C.7.6.3).
#pragma once

#include "Varnotix/Varnotix.h"

#include <cstdint>

/// Numbers of photometric interpretations (see CDcmRegistry::PhotoMetricEnum).
enum EPhotometric : int
{
    PHOTOMETRIC_UNKNOWN = -1,
    PHOTOMETRIC_MONOCHROME1 = 0,
    PHOTOMETRIC_MONOCHROME2 = 1,
    PHOTOMETRIC_PALETTE = 2,
    PHOTOMETRIC_RGB = 3,
    PHOTOMETRIC_YBR_FULL = 4,
    PHOTOMETRIC_YBR_FULL_422 = 5,
    PHOTOMETRIC_YBR_ICT = 7,
    PHOTOMETRIC_YBR_RCT = 8
};

/// The attributes, unchecked. Missing ones are zero.
struct SImageHeader
{
    int samples = 0;
    int rows = 0;
    int columns = 0;
    int allocated = 0;
    int stored = 0;  ///< As allocated when missing.
    int highBit = 0; ///< One below stored when missing.
    bool isSigned = false;
    bool byPlane = false; ///< Planar Configuration 1.
    CString framesText;   ///< Number of Frames as the object has it.
    CString photometric;  ///< Its name, upper-case where it is known.
    int photometricNumber = PHOTOMETRIC_UNKNOWN;
    int syntax = 0; ///< The syntax in which the object was read (see ESyntax).

    std::uint64_t Pixels() const { return static_cast<std::uint64_t>(rows) * static_cast<std::uint64_t>(columns); }

    /// Bits of a frame that is not compressed; 0 when attributes are missing.
    std::uint64_t FrameBits() const;

    /// The same in bytes, rounded up.
    std::uint64_t FrameSize() const { return (FrameBits() + 7) / 8; }
};

SImageHeader ReadImageHeader(const CDcmIOD& object);
