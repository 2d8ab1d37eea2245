// Short ways to write and compare the values of modules in tests.
#pragma once

#include "Varnotix/iod/DcmIOD.h"

#include <string>

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

inline void AddNumbers(std::string& text, const auto* values)
{
    for (int i = 0; values != nullptr && i < values->GetSize(); ++i)
    {
        text += std::to_string((*values)[i]) + " ";
    }
}

/// Each element with a value as "tag=value ", the items of a sequence in braces.
inline std::string Values(const CDcmElementSet& set)
{
    std::string text;
    for (int i = 0; i < set.GetCount(); ++i)
    {
        CDcmElement& element = *set.GetAt(i);
        if (element.IsEmptyValue())
        {
            continue;
        }
        text += (element.GroupText() + element.ElementText() + "=").CText();
        if (element.Items() != nullptr)
        {
            text += "{" + Values(*element.Items()) + "} ";
        }
        else if (element.Texts() != nullptr)
        {
            text += element.JoinedText().CText();
            text += " ";
        }
        else if (element.Frames() != nullptr)
        {
            text += "(pixels) ";
        }
        else
        {
            AddNumbers(text, element.Words());
            AddNumbers(text, element.Integers());
            AddNumbers(text, element.Bytes());
            AddNumbers(text, element.Floats());
            AddNumbers(text, element.Doubles());
        }
    }
    return text;
}

inline std::string Values(const CDcmAttributeSet& set)
{
    return Values(set.GetDcmElementSet());
}
