/// Texts between the character sets of DICOM objects and UTF-8.
#pragma once

#include "Varnotix/Varnotix.h"
#include "text/CodeTable.h"

#include <string>
#include <string_view>
#include <vector>

/// The values of an attribute in UTF-8.
struct SDecodedText
{
    std::vector<std::string> values; ///< At least one, which may be empty. Padding is kept.
    int replaced = 0;                ///< How many times U+FFFD is in them for bytes without a character.

    /// The values with backslashes between them.
    std::string Joined() const;
};

/// A value field, or the reason why a text cannot be one.
struct SEncodedText
{
    std::string bytes;
    CString reason;         ///< Empty when the text was encoded.
    bool isForeign = false; ///< The reason is a character that the set lacks.
};

/// The character sets that a Specific Character Set (0008,0005) declares, with code extensions (PS3.5 section 6.1.2.5).
///
/// They apply to the VRs SH, LO, ST, PN, LT, UC and UT; values of others are ASCII. VRs are given by their letters.
class CCharacterSet
{
public:
    /// The default repertoire: ASCII.
    CCharacterSet() : CCharacterSet(std::string_view()) {}
    /// @param terms the defined terms, with backslashes between them. Case, and which of blank, hyphen and underline
    ///        separates their parts, do not matter. A term that is not one counts as an empty one.
    explicit CCharacterSet(std::string_view terms);

    /// The one for the elements of a data set.
    /// @param set the object's elements, or those of a sequence.
    /// @param item number of the item in the sequence; 0 for the object itself.
    /// @param around applies unless the item has a Specific Character Set of its own.
    static CCharacterSet Of(const CDcmElementSet& set, int item, const CCharacterSet& around);

    /// As given to the constructor, without blanks around the terms.
    const std::string& Terms() const { return m_terms; }
    /// The first term that is not a defined one; empty when all are.
    const std::string& UnknownTerm() const { return m_unknown; }
    bool IsUtf8() const { return m_initial.lower == ECodeSet::Utf8; }

    /// Decodes a value field, and divides it into values where the VR has more than one. A code of two bytes that
    /// looks like a backslash does not divide.
    SDecodedText ToUtf8(std::string_view bytes, std::string_view vr) const;

    /// Encodes a value field, without padding. The backslash separates values where the VR has more than one.
    SEncodedText FromUtf8(std::string_view text, std::string_view vr) const;

    /// Whether the character set matters for a VR.
    static bool AppliesTo(std::string_view vr);
    /// Whether a backslash separates values of a VR of text.
    static bool HasManyValues(std::string_view vr);
    /// A value without padding: blanks and zeros at its end, and blanks before it but for the VRs in which those count
    /// (PS3.5 table 6.2-1).
    static std::string_view WithoutPadding(std::string_view value, std::string_view vr);

private:
    friend class CTextDecoder;
    friend class CTextEncoder;

    /// What the codes below and above 80H mean.
    struct SHalves
    {
        ECodeSet lower = ECodeSet::Ascii; ///< Gb18030, Gbk and Utf8 have both halves.
        ECodeSet upper = ECodeSet::None;

        bool operator==(const SHalves& other) const = default;
    };

    SHalves m_initial;
    bool m_hasExtensions = false;
    std::vector<ECodeSet> m_sets; // All that the terms declare.
    std::string m_terms;
    std::string m_unknown;
};
