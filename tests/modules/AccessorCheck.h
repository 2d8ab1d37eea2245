// What each accessor of the catalogue promises; the calls are made from the rows of its headers.
#pragma once

#include "Values.h"
#include "Varnotix/modules/DcmModule.h"
#include "Varnotix/modules/DcmSequence.h"

#include <gtest/gtest.h>

#include <tuple>

/// A row: the accessor's name and its tag.
struct SAccessorRow
{
    const char* name;
    CString group;
    CString element;
};

/// True when the accessor bears its attribute's name, or when docs/catalogue.md tells that it stands for this tag.
bool IsNamedForItsAttribute(const CString& className, const SAccessorRow& row, const CString& attribute);

/// The set's values as a stream of implicit little endian brings them back, inside a sequence item.
void WriteAndRead(const CDcmElementSet& values, CDcmElementSet& target);

/// Checks that the elements of a fresh object are known to the dictionary, empty, and in tag order.
void CheckDeclaration(const CDcmElementSet& set);

/// A value for an element of a multiplicity and VR.
template <class VALUE>
VALUE MakeSample(const CDcmElement& element)
{
    if constexpr (std::is_same_v<VALUE, CStringArray>)
    {
        return element.Vm() == 1 ? ArrayOf<VALUE, CString>({"12"}) : ArrayOf<VALUE, CString>({"1", "34"});
    }
    else if constexpr (std::is_same_v<VALUE, CWordArray>)
    {
        return element.Vm() == 1 && element.Vr() != VR_OW ? Words({0xFEDC}) : Words({0xFEDC, 2});
    }
    else
    {
        const std::tuple<CString, WORD, DWORD, double, CUIntArray, CDoubleArray, CFloatArray, CByteArray> samples(
            "12", WORD{0x1234}, 0x89ABCDEF, -2.5, ArrayOf<CUIntArray, UINT>({0x89ABCDEF, 2}),
            ArrayOf<CDoubleArray, double>({-2.5, 0.5}), ArrayOf<CFloatArray, float>({-2.5F, 0.5F}),
            ArrayOf<CByteArray, BYTE>({0, 0xFF}));
        return std::get<VALUE>(samples);
    }
}

// The text of a value, as Values writes it.

template <class VALUE>
std::string SampleText(const VALUE& value)
{
    std::string text;
    if constexpr (std::is_same_v<VALUE, CString>)
    {
        text = std::string(value.View()) + " ";
    }
    else if constexpr (std::is_same_v<VALUE, CStringArray>)
    {
        for (const CString& one : value)
        {
            text += (text.empty() ? "" : "\\") + std::string(one.View());
        }
        text += " ";
    }
    else if constexpr (std::is_arithmetic_v<VALUE>)
    {
        text = std::to_string(value) + " ";
    }
    else
    {
        AddNumbers(text, &value);
    }
    return text;
}

/// Checks the accessors of one class, each with a fresh object.
template <class CLASS>
class TAccessorCheck
{
public:
    TAccessorCheck() { CheckDeclaration(CLASS().GetDcmElementSet()); }

    /// What is set is read back, stands in the row's element and in no other, and survives a stream.
    template <class RESULT, class ARGUMENT>
    void Accessor(const SAccessorRow& row, RESULT (CLASS::*get)(), void (CLASS::*set)(ARGUMENT))
    {
        CLASS object;
        std::decay_t<ARGUMENT> value;
        if (!TakeSample(object, row, value))
        {
            return;
        }
        (object.*set)(value);
        if constexpr (std::is_same_v<std::decay_t<ARGUMENT>, DWORD>)
        {
            if (ElementOf(object, row)->Vr() == VR_AT)
            {
                // The accessor cannot hold an attribute tag; see docs/catalogue.md.
                EXPECT_EQ(Values(object), Prefix(row) + SampleText(static_cast<WORD>(value)));
                EXPECT_EQ((object.*get)(), 0U);
                return;
            }
        }
        EXPECT_TRUE((object.*get)() == value);
        CLASS again(ReadBack(object, row, value));
        EXPECT_TRUE((again.*get)() == value);
    }

    template <class ARGUMENT>
    void Setter(const SAccessorRow& row, void (CLASS::*set)(ARGUMENT))
    {
        CLASS object;
        std::decay_t<ARGUMENT> value;
        if (TakeSample(object, row, value))
        {
            (object.*set)(value);
            ReadBack(object, row, value);
        }
    }

    template <class RESULT>
    void Getter(const SAccessorRow& row, RESULT (CLASS::*get)())
    {
        CLASS object;
        std::decay_t<RESULT> value;
        if (TakeSample(object, row, value))
        {
            ElementOf(object, row)->SetWords(value);
            EXPECT_TRUE((object.*get)() == value);
        }
    }

    /// The member shows the items of the row's element, also in copies and after an assignment.
    template <class SEQUENCE>
    void Sequence(const SAccessorRow& row, SEQUENCE& (CLASS::*get)())
    {
        CLASS object;
        CheckName(object, row);
        const auto isBound = [&](CLASS& any)
        {
            const CDcmElement* element = ElementOf(any, row);
            return element != nullptr && element->Items() != nullptr &&
                   (any.*get)().GetDcmElementSet().SharesBodyWith(*element->Items());
        };
        CLASS copy(object);
        CLASS assigned;
        assigned = copy;
        EXPECT_TRUE(isBound(object) && isBound(copy) && isBound(assigned)) << row.name;
    }

    /// The member shows its part of the object's own elements.
    template <class MACRO>
    void Included(MACRO& (CLASS::*get)())
    {
        CLASS object;
        CLASS copy(object);
        for (CLASS* any : {&object, &copy})
        {
            EXPECT_TRUE((any->*get)().GetDcmElementSet().SharesBodyWith(any->GetDcmElementSet()));
        }
    }

private:
    static CDcmElement* ElementOf(CLASS& object, const SAccessorRow& row)
    {
        return object.GetDcmElementSet().Find(row.group, row.element);
    }

    static std::string Prefix(const SAccessorRow& row)
    {
        CString tag(row.group + row.element);
        tag.MakeLower();
        return std::string(tag.View()) + "=";
    }

    static bool CheckName(CLASS& object, const SAccessorRow& row)
    {
        const CDcmElement* element = ElementOf(object, row);
        EXPECT_NE(element, nullptr) << row.name;
        if (element != nullptr)
        {
            EXPECT_TRUE(IsNamedForItsAttribute(object.GetRuntimeClass()->m_lpszClassName, row, element->Name()))
                << row.name << " is " << element->Name().CText();
        }
        return element != nullptr;
    }

    template <class VALUE>
    static bool TakeSample(CLASS& object, const SAccessorRow& row, VALUE& value)
    {
        const bool found = CheckName(object, row);
        if (found)
        {
            value = MakeSample<VALUE>(*ElementOf(object, row));
        }
        return found;
    }

    template <class VALUE>
    static CLASS ReadBack(CLASS& object, const SAccessorRow& row, const VALUE& value)
    {
        EXPECT_EQ(Values(object), Prefix(row) + SampleText(value)) << row.name;
        CLASS again;
        WriteAndRead(object.GetDcmElementSet(), again.GetDcmElementSet());
        EXPECT_EQ(Values(again), Values(object)) << row.name;
        return again;
    }
};
