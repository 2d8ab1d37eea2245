/// Value representations that the library's VR codes do not name.
#pragma once

#include "Varnotix/platform/Export.h"
#include "Varnotix/platform/Types.h"
#include "Varnotix/registry/VrTable.h"

#include <cstddef>

namespace Varnotix
{

/// The VRs that came to the standard after the 27 of EVr (PS3.5 table 6.2-1).
///
/// VR codes appear in stored records and must not change, so an element of such a VR has the code of the VR that holds
/// its value (see CarrierVr), and carries the VR itself beside it. Only the standard stream rules read and write them.
enum class ELaterVr : BYTE
{
    None, ///< One of the VRs of EVr.
    OD,   ///< 64-bit floats.
    OL,   ///< 32-bit words.
    OV,   ///< 64-bit words.
    SV,   ///< Signed 64-bit integers.
    UC,   ///< Unlimited text, several values.
    UR,   ///< Universal resource identifier.
    UV    ///< Unsigned 64-bit integers.
};

/// Two upper-case letters; empty for None.
VARNOTIX_EXPORT const char* LaterVrText(ELaterVr vr);

/// The VR of two letters of an explicit stream; None for others. Case matters.
VARNOTIX_EXPORT ELaterVr LaterVrOfBytes(BYTE first, BYTE second);

/// The code under which an element of the VR holds its value: VR_UT for UC and UR, VR_OB for the others.
VARNOTIX_EXPORT int CarrierVr(ELaterVr vr);

/// Width in bytes of the numbers that big endian streams hold in reverse; 1 for texts and None.
VARNOTIX_EXPORT std::size_t SwapWidth(ELaterVr vr);

/// The VRs between which the standard leaves a choice that depends on the data set (PS3.6).
enum class EVrChoice : BYTE
{
    None,
    UsOrSs,    ///< By Pixel Representation (0028,0103).
    ObOrOw,    ///< OW in implicit VR (PS3.5 section A.1).
    UsOrSsOrOw ///< OW in implicit VR.
};

} // namespace Varnotix
