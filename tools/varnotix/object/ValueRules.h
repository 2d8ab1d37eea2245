/// The rules of PS3.5 table 6.2-1 for values.
#pragma once

#include "object/Multiplicity.h"
#include "text/CharacterSet.h"

#include <string_view>
#include <vector>

/// What is wrong with a value.
struct SValueFault
{
    enum class ESeverity
    {
        Warning, ///< Readers accept it: an older form that the standard keeps for them, or other padding.
        Error    ///< The standard does not allow it.
    };

    ESeverity severity;
    int value;    ///< Number of the value, counted from 1; 0 for the value field as a whole.
    CString what; ///< Such as "'2001' is not a date (YYYYMMDD)". Control characters of values are shown as dots.
};

/// Checks a value field by its VR: lengths, characters, forms and ranges of its values, and their number. An empty
/// field is a value of any VR. Its own length may be odd, as before padding.
/// @param vr two letters; of a VR that PS3.5 does not list nothing is wrong.
/// @param bytes in little endian.
/// @param characters the character set that applies to the element.
std::vector<SValueFault> CheckValue(std::string_view vr, const SMultiplicity& multiplicity, std::string_view bytes,
                                    const CCharacterSet& characters);

/// As above for an element that is neither a sequence nor Pixel Data, which have no value field.
std::vector<SValueFault> CheckValue(const CDcmElement& element, const CCharacterSet& characters);
