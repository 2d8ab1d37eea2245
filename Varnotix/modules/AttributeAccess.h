/// How the typed accessors of modules and sequences reach an element's value.
///
/// Each access has Get and Set. Both take an element set and a position in its declared-tag list. Get returns a
/// reference into the element's own value; for a missing element, for a VR that holds another kind of value, and, for
/// single numbers, for an element without value, it returns a library-wide empty value. Set changes nothing when the
/// element is missing or its VR does not hold the kind.
#pragma once

#include "Varnotix/element/DcmElementSet.h"

/// The first text. An element without text gets one empty text, so that the caller may write to it.
struct VARNOTIX_EXPORT CTextAccess
{
    static CString& Get(CDcmElementSet& set, int position);
    static void Set(CDcmElementSet& set, int position, const CString& value);
};

/// All texts.
struct VARNOTIX_EXPORT CTextListAccess
{
    static CStringArray& Get(CDcmElementSet& set, int position);
    static void Set(CDcmElementSet& set, int position, const CStringArray& value);
};

/// The first word of US, SS or AT. Set adds a word where the attribute may hold several.
struct VARNOTIX_EXPORT CWordAccess
{
    static const WORD& Get(CDcmElementSet& set, int position);
    static void Set(CDcmElementSet& set, int position, WORD value);
};

/// All words of US, SS, AT or OW.
struct VARNOTIX_EXPORT CWordListAccess
{
    static CWordArray& Get(CDcmElementSet& set, int position);
    static void Set(CDcmElementSet& set, int position, const CWordArray& value);
};

/// The first number of UL or SL. Set adds a number where the attribute may hold several.
struct VARNOTIX_EXPORT CIntegerAccess
{
    static const DWORD& Get(CDcmElementSet& set, int position);
    static void Set(CDcmElementSet& set, int position, DWORD value);
};

/// All numbers of UL or SL.
struct VARNOTIX_EXPORT CIntegerListAccess
{
    static CUIntArray& Get(CDcmElementSet& set, int position);
    static void Set(CDcmElementSet& set, int position, const CUIntArray& value);
};

/// The first number of FD. Set adds a number where the attribute may hold several.
struct VARNOTIX_EXPORT CDoubleAccess
{
    static const double& Get(CDcmElementSet& set, int position);
    static void Set(CDcmElementSet& set, int position, double value);
};

/// All numbers of FD.
struct VARNOTIX_EXPORT CDoubleListAccess
{
    static CDoubleArray& Get(CDcmElementSet& set, int position);
    static void Set(CDcmElementSet& set, int position, const CDoubleArray& value);
};

/// All numbers of FL or OF.
struct VARNOTIX_EXPORT CFloatListAccess
{
    static CFloatArray& Get(CDcmElementSet& set, int position);
    static void Set(CDcmElementSet& set, int position, const CFloatArray& value);
};

/// The bytes of OB.
struct VARNOTIX_EXPORT CBytesAccess
{
    static CByteArray& Get(CDcmElementSet& set, int position);
    static void Set(CDcmElementSet& set, int position, const CByteArray& value);
};
