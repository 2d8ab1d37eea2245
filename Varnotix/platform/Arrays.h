/// The arrays that the interfaces name.
#pragma once

#include "Varnotix/platform/Array.h"

// Each has its own run-time class, so that a CObject can be asked what it holds. Copies, moves and comparison are those
// of CArray.

/// Bytes.
class VARNOTIX_EXPORT CByteArray : public CArray<BYTE, BYTE>
{
    DECLARE_DYNCREATE(CByteArray)
};

/// 16-bit words.
class VARNOTIX_EXPORT CWordArray : public CArray<WORD, WORD>
{
    DECLARE_DYNCREATE(CWordArray)
};

/// 32-bit words.
class VARNOTIX_EXPORT CDWordArray : public CArray<DWORD, DWORD>
{
    DECLARE_DYNCREATE(CDWordArray)
};

/// Natural integers without sign.
class VARNOTIX_EXPORT CUIntArray : public CArray<UINT, UINT>
{
    DECLARE_DYNCREATE(CUIntArray)
};

/// Texts. They compare as CString does, up to the first zero byte.
class VARNOTIX_EXPORT CStringArray : public CArray<CString, const CString&>
{
    DECLARE_DYNCREATE(CStringArray)
};

/// Pointers to objects, which the array does not own.
class VARNOTIX_EXPORT CObArray : public CArray<CObject*, CObject*>
{
    DECLARE_DYNCREATE(CObArray)
};

/// Numbers of single precision.
using CFloatArray = CArray<float, float>;
/// Numbers of double precision.
using CDoubleArray = CArray<double, double>;
