// Short ways to write and compare the values of modules in tests.
#pragma once

#include "StreamBytes.h"
#include "Varnotix/iod/DcmIOD.h"

template <class ARRAY, class VALUE>
ARRAY ArrayOf(std::initializer_list<VALUE> values)
{
    ARRAY array;
    for (const VALUE& value : values)
    {
        array.Add(value);
    }
    return array;
}

inline CWordArray Words(std::initializer_list<WORD> values)
{
    return ArrayOf<CWordArray>(values);
}

inline CStringArray Texts(std::initializer_list<CString> values)
{
    return ArrayOf<CStringArray>(values);
}

/// The module as a stream brings its values back.
template <class MODULE>
MODULE ReadBack(MODULE& module)
{
    CDcmIOD written;
    written << module;
    CByteArray bytes;
    written.ExportFileFormat(bytes);
    CDcmIOD again;
    again.Import(bytes);
    MODULE read;
    again >> read;
    return read;
}

/// The elements of a module that have a value (see Show).
inline std::string Filled(const CDcmAttributeSet& set)
{
    return Show(set.GetDcmElementSet(), true);
}
