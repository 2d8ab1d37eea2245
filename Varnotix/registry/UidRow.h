/// The rows of the UID table that the library gives a meaning to.
#pragma once

namespace Varnotix
{

/// What CDcmRegistry::UidEnum answers for the UIDs in the first rows of "UidTable.txt": the Verification SOP class and
/// transfer syntaxes (PS3.6 annex A). Rows 1, 2 and 4 equal the codes of ESyntax.
enum EUidRow : int
{
    UID_VERIFICATION = 0,
    UID_IMPLICIT_LITTLE,
    UID_EXPLICIT_LITTLE,
    UID_DEFLATED_LITTLE,
    UID_EXPLICIT_BIG,
    UID_JPEG_BASELINE,
    UID_JPEG_EXTENDED,
    UID_JPEG_LOSSLESS,
    UID_JPEG_LOSSLESS_FIRST_ORDER,
    UID_JPEG_LS_LOSSLESS,
    UID_JPEG_LS_NEAR_LOSSLESS,
    UID_JPEG_2000_LOSSLESS,
    UID_JPEG_2000,
    UID_JPEG_2000_PART2_LOSSLESS,
    UID_JPEG_2000_PART2,
    UID_MPEG2_MAIN,
    UID_MPEG2_HIGH,
    UID_MPEG4_HIGH_41,
    UID_MPEG4_BD_41,
    UID_MPEG4_2D_42,
    UID_MPEG4_3D_42,
    UID_MPEG4_STEREO_42,
    UID_HEVC_MAIN,
    UID_HEVC_MAIN_10,
    UID_HTJ2K_LOSSLESS,
    UID_HTJ2K_LOSSLESS_RPCL,
    UID_HTJ2K,
    UID_RLE
};

/// True for the transfer syntaxes whose pixel data is native, that is neither divided into fragments nor compressed.
/// Deflated objects are among them: what is deflated is the whole data set.
constexpr bool IsNative(int row)
{
    return row >= UID_IMPLICIT_LITTLE && row <= UID_EXPLICIT_BIG;
}

/// True for the transfer syntaxes whose pixel data is encapsulated in fragments (PS3.5 annex A.4).
constexpr bool IsEncapsulated(int row)
{
    return row >= UID_JPEG_BASELINE && row <= UID_RLE;
}

} // namespace Varnotix
