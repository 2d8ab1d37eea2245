/// How the typed accessors of modules and sequences reach an element's value.
#pragma once

#include "Varnotix/element/DcmElementSet.h"

#include <type_traits>

/// Gets and sets the value of a declared element as a VALUE. Both functions take an element set and a position in its
/// declared-tag list.
///
/// VALUE is one of
/// - CString: the first text; an element without text gets one empty text, so that the caller may write to it
/// - CStringArray: all texts
/// - WORD: the first word of US, SS or AT; DWORD: the first number of UL or SL; double: the first number of FD
/// - CWordArray: all words of US, SS, AT or OW; CUIntArray: all numbers of UL or SL; CDoubleArray: all of FD
/// - CFloatArray: all numbers of FL or OF
/// - CByteArray: the bytes of OB
template <class VALUE>
struct VARNOTIX_EXPORT TAttributeAccess
{
    /// Single numbers are changed by Set only.
    using CReference = std::conditional_t<std::is_arithmetic_v<VALUE>, const VALUE&, VALUE&>;

    /// A reference into the element's own value. For a missing element, for a VR that holds another kind of value,
    /// and, for single numbers, for an element without value, an empty value that the library
    /// keeps for the thread.
    static CReference Get(CDcmElementSet& set, int position);
    /// Sets the value; a single value is added where the attribute may hold several. Nothing changes when the element
    /// is missing or its VR does not hold the kind.
    static void Set(CDcmElementSet& set, int position, const VALUE& value);
};
