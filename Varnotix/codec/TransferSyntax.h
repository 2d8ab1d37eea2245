/// Transfer syntaxes by their UIDs (PS3.5 section 10 and Annex A).
#pragma once

#include "Varnotix/element/DcmElement.h"

namespace Varnotix
{

/// How deep reads, writes and scripts follow nested sequences. Real objects stay under 10; deeper ones cannot overflow
/// a stack of 1 MB.
inline constexpr int kMaxDepth = 64;

/// The syntax code of a UID: rows 1, 2 and 4 of the UID table are themselves; row 3 and rows 5 to 27
/// (deflated and encapsulated syntaxes) are carried as explicit VR little endian; any other UID is unknown.
VARNOTIX_EXPORT int SyntaxOfUid(const CString& uid);

/// How a transfer syntax carries Pixel Data.
enum class EPixelForm : BYTE
{
    Unknown,     ///< The library does not know the UID.
    Native,      ///< Frames end to end in one value.
    Encapsulated ///< Offset table and fragments as items (PS3.5 section A.4).
};

/// How the transfer syntax of a UID carries Pixel Data.
VARNOTIX_EXPORT EPixelForm PixelFormOfUid(const CString& uid);

/// True for Deflated Explicit VR Little Endian (PS3.5 section A.5).
VARNOTIX_EXPORT bool IsDeflatedUid(const CString& uid);

/// The UID of a syntax code; empty for SYNTAX_UNKNOWN and other numbers.
VARNOTIX_EXPORT CString UidOfSyntax(int syntax);

} // namespace Varnotix
