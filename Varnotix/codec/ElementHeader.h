/// Parts of element headers (PS3.5 section 7.1).
#pragma once

#include "Varnotix/codec/ByteOrder.h"
#include "Varnotix/element/DcmElement.h"
#include "Varnotix/registry/LaterVr.h"
#include "Varnotix/registry/Tag.h"

namespace Varnotix
{

inline constexpr std::size_t kLongHeaderSize = 12; ///< Tag, VR, two reserved bytes, 32-bit length.
inline constexpr std::size_t kShortHeaderSize = 8; ///< Tag, VR, 16-bit length; or tag and 32-bit length.

/// What two letters of a header mean.
struct SExplicitVr
{
    int code; ///< VR_UN where the letters are unknown.
    ELaterVr laterVr;
    bool isKnown;     ///< One of the VRs of the standard.
    bool hasLongForm; ///< Also for unknown letters: VRs to come will have it (PS3.5 section 6.2).
};

inline bool IsVrLetter(BYTE byte)
{
    return byte >= 'A' && byte <= 'Z';
}

inline SExplicitVr ExplicitVrOf(const BYTE* letters)
{
    if (IsVrLetter(letters[0]) && IsVrLetter(letters[1]))
    {
        const int code = VrCodeOfBytes(letters[0], letters[1]);
        if (code != VR_UNKNOWN)
        {
            return {code, ELaterVr::None, true, HasLongForm(code)};
        }
        const ELaterVr later = LaterVrOfBytes(letters[0], letters[1]);
        if (later != ELaterVr::None)
        {
            return {CarrierVr(later), later, true, true};
        }
    }
    return {VR_UN, ELaterVr::None, false, true};
}

/// True for the syntax in which numbers are big endian (see ESyntax).
inline bool IsBigEndian(int syntax)
{
    return syntax == SYNTAX_EXPLICIT_BIG;
}

/// The tag at the beginning of a header.
inline DWORD TagAt(const BYTE* header, int syntax)
{
    const bool bigEndian = IsBigEndian(syntax);
    return Tag::Make(Word(header, bigEndian), Word(header + 2, bigEndian));
}

/// Writes the header of an element in implicit VR little endian.
inline void PutImplicitHeader(BYTE* header, DWORD tag, DWORD length)
{
    PutWord(header, static_cast<DWORD>(Tag::Group(tag)), false);
    PutWord(header + 2, static_cast<DWORD>(Tag::Element(tag)), false);
    PutDoubleWord(header + 4, length, false);
}

/// Writes the header of an element in an explicit syntax.
/// @param letters the VR.
/// @param length the short form holds its low 16 bits.
template <bool SWAPPED>
void PutExplicitHeader(BYTE* header, DWORD tag, const char* letters, bool isLong, DWORD length)
{
    PutWord(header, static_cast<DWORD>(Tag::Group(tag)), SWAPPED);
    PutWord(header + 2, static_cast<DWORD>(Tag::Element(tag)), SWAPPED);
    std::memcpy(header + 4, letters, 2);
    PutWord(header + 6, isLong ? 0 : length, SWAPPED);
    if (isLong)
    {
        PutDoubleWord(header + 8, length, SWAPPED);
    }
}

/// As above. The byte order is looked at once, and not for each number.
inline void PutExplicitHeader(BYTE* header, DWORD tag, const char* letters, bool isLong, DWORD length, bool bigEndian)
{
    if (bigEndian)
    {
        PutExplicitHeader<true>(header, tag, letters, isLong, length);
    }
    else
    {
        PutExplicitHeader<false>(header, tag, letters, isLong, length);
    }
}

/// Width in bytes of the numbers that a big endian stream holds in reverse, for a VR and the later VR beside it.
inline std::size_t SwapWidthOf(int vr, ELaterVr laterVr)
{
    return laterVr != ELaterVr::None ? SwapWidth(laterVr) : SwapWidth(vr);
}

} // namespace Varnotix
