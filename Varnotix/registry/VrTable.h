/// The value representations (VR) that the library knows, their codes and what kind of value each holds.
///
/// VR codes are small integers that appear in interfaces, in stored entries and in element records. Their order is
/// the alphabetical order of the two-letter names and must not change.
#pragma once

#include "Varnotix/platform/Export.h"
#include "Varnotix/platform/String.h"
#include "Varnotix/platform/Types.h"

#include <array>
#include <cstddef>
#include <string_view>

/// VR codes (PS3.5 section 6.2). Code 27 is not used.
enum EVr : int
{
    VR_AE = 0,
    VR_AS,
    VR_AT,
    VR_CS,
    VR_DA,
    VR_DS,
    VR_DT,
    VR_FL,
    VR_FD,
    VR_IS,
    VR_LO,
    VR_LT,
    VR_OB,
    VR_OF,
    VR_OW,
    VR_PN,
    VR_SH,
    VR_SL,
    VR_SQ,
    VR_SS,
    VR_ST,
    VR_TM,
    VR_UI,
    VR_UL,
    VR_UN,
    VR_US,
    VR_UT,
    VR_NONE = 28,   ///< Item and delimitation tags of group FFFE, which have no VR.
    VR_UNKNOWN = 29 ///< A VR text that is not recognised.
};

/// How many VRs have a two-letter name.
inline constexpr int kNamedVrCount = 27;

/// Which array of an element holds the values of a VR.
enum class EVrKind : BYTE
{
    Text,       ///< A list of texts.
    Words,      ///< 16-bit words: AT, SS, US.
    Integers,   ///< 32-bit integers: SL, UL.
    Floats,     ///< 32-bit floats: FL, OF.
    Doubles,    ///< 64-bit floats: FD.
    Bytes,      ///< Bytes: OB.
    OtherWords, ///< 16-bit words that may also be handed in as bytes: OW.
    Items,      ///< A nested element set: SQ.
    RawOnly     ///< No typed value: UN and the codes without a name.
};

namespace Varnotix
{

/// One row of the VR type table.
struct VARNOTIX_EXPORT SVrRow
{
    const char* text;        ///< The two upper-case letters.
    const char* description; ///< The letters, a blank and the long name.
    DWORD maxLength;         ///< Maximum value length in bytes; 0 where none is stated.
};

/// The row of a named VR.
/// @param vr 0 to 26; any other code gives an empty row.
VARNOTIX_EXPORT const SVrRow& VrRow(int vr);

/// The letters of all named VRs, two each, by code; then two zero bytes.
inline constexpr char kVrLetters[2 * kNamedVrCount + 2] = "AEASATCSDADSDTFLFDISLOLTOBOFOWPNSHSLSQSSSTTMUIULUNUSUT";

/// The two letters that the header of an explicit stream has for a VR, without a terminating zero.
/// @param vr 0 to 26; any other code gives two zero bytes.
inline const char* VrLettersOf(int vr)
{
    return kVrLetters + std::ptrdiff_t{2} * (vr >= 0 && vr < kNamedVrCount ? vr : kNamedVrCount);
}

/// The text of a VR code: two letters, "NONE" for VR_NONE, the empty text for every other code.
VARNOTIX_EXPORT const char* VrText(int vr);

/// The code of a VR text, without regard to case. Besides the two-letter names it knows the dictionary's spellings
/// for context-dependent VRs: usss, csob, usssow, obow and none.
/// @return VR_UNKNOWN for any other text.
VARNOTIX_EXPORT int VrCode(std::string_view text);

/// The codes of all pairs of letters; VR_UNKNOWN for those that name no VR.
inline constexpr auto kCodesOfLetters = []
{
    constexpr std::size_t kLetters = 26;
    std::array<BYTE, kLetters * kLetters> codes{};
    codes.fill(static_cast<BYTE>(VR_UNKNOWN));
    for (std::size_t vr = 0; vr < kNamedVrCount; ++vr)
    {
        const auto first = static_cast<std::size_t>(kVrLetters[2 * vr] - 'A');
        const auto second = static_cast<std::size_t>(kVrLetters[2 * vr + 1] - 'A');
        codes[first * kLetters + second] = static_cast<BYTE>(vr);
    }
    return codes;
}();

/// The code of the two VR bytes of an explicit stream, without regard to case; VR_UNKNOWN for others.
inline int VrCodeOfBytes(BYTE first, BYTE second)
{
    const unsigned row = (first & 0xDFU) - 'A';
    const unsigned column = (second & 0xDFU) - 'A';
    constexpr unsigned kLetters = 26;
    return row < kLetters && column < kLetters ? kCodesOfLetters[row * kLetters + column]
                                               : static_cast<int>(VR_UNKNOWN);
}

/// The kind of value that a VR holds.
inline EVrKind VrKind(int vr)
{
    static constexpr EVrKind kKinds[kNamedVrCount] = {
        /* AE */ EVrKind::Text,    /* AS */ EVrKind::Text,   /* AT */ EVrKind::Words,
        /* CS */ EVrKind::Text,    /* DA */ EVrKind::Text,   /* DS */ EVrKind::Text,
        /* DT */ EVrKind::Text,    /* FL */ EVrKind::Floats, /* FD */ EVrKind::Doubles,
        /* IS */ EVrKind::Text,    /* LO */ EVrKind::Text,   /* LT */ EVrKind::Text,
        /* OB */ EVrKind::Bytes,   /* OF */ EVrKind::Floats, /* OW */ EVrKind::OtherWords,
        /* PN */ EVrKind::Text,    /* SH */ EVrKind::Text,   /* SL */ EVrKind::Integers,
        /* SQ */ EVrKind::Items,   /* SS */ EVrKind::Words,  /* ST */ EVrKind::Text,
        /* TM */ EVrKind::Text,    /* UI */ EVrKind::Text,   /* UL */ EVrKind::Integers,
        /* UN */ EVrKind::RawOnly, /* US */ EVrKind::Words,  /* UT */ EVrKind::Text};
    return vr >= 0 && vr < kNamedVrCount ? kKinds[vr] : EVrKind::RawOnly;
}

/// True for the VRs whose explicit headers carry two reserved bytes and a 32-bit length (PS3.5 section 7.1.2).
inline bool HasLongForm(int vr)
{
    constexpr DWORD kLongForms =
        (1U << VR_OB) | (1U << VR_OF) | (1U << VR_OW) | (1U << VR_SQ) | (1U << VR_UN) | (1U << VR_UT);
    return vr >= 0 && vr < kNamedVrCount && (kLongForms >> static_cast<unsigned>(vr) & 1U) != 0;
}

} // namespace Varnotix
