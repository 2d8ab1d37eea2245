#include "Varnotix/modules/AttributeAccess.h"

#include "Varnotix/platform/ThreadValue.h"

#include <tuple>

namespace
{

/// The element's getter and setter of a kind of value.
template <class ARRAY, ARRAY* (CDcmElement::*GETTER)(), auto SETTER>
struct SMembers
{
    static ARRAY* Get(CDcmElement& element) { return (element.*GETTER)(); }
    static void Set(CDcmElement& element, const auto& value) { (element.*SETTER)(value); }
};

// clang-format off
template <class VALUE> struct SMembersOf;
template <> struct SMembersOf<CString>      : SMembers<CStringArray, &CDcmElement::Texts, &CDcmElement::AddText> {};
template <> struct SMembersOf<CStringArray> : SMembers<CStringArray, &CDcmElement::Texts, &CDcmElement::SetTexts> {};
template <> struct SMembersOf<WORD>         : SMembers<CWordArray, &CDcmElement::Words, &CDcmElement::AddWord> {};
template <> struct SMembersOf<CWordArray>   : SMembers<CWordArray, &CDcmElement::Words, &CDcmElement::SetWords> {};
template <> struct SMembersOf<DWORD>        : SMembers<CUIntArray, &CDcmElement::Integers, &CDcmElement::AddInteger> {};
template <> struct SMembersOf<CUIntArray>   : SMembers<CUIntArray, &CDcmElement::Integers, &CDcmElement::SetIntegers> {};
template <> struct SMembersOf<double>       : SMembers<CDoubleArray, &CDcmElement::Doubles, &CDcmElement::AddDouble> {};
template <> struct SMembersOf<CDoubleArray> : SMembers<CDoubleArray, &CDcmElement::Doubles, &CDcmElement::SetDoubles> {};
template <> struct SMembersOf<CFloatArray>  : SMembers<CFloatArray, &CDcmElement::Floats, &CDcmElement::SetFloats> {};
template <> struct SMembersOf<CByteArray>   : SMembers<CByteArray, &CDcmElement::Bytes, &CDcmElement::SetBytes> {};
// clang-format on

using CEmptyValues = std::tuple<CString, CStringArray, CWordArray, CUIntArray, CDoubleArray, CFloatArray, CByteArray>;

CEmptyValues& EmptyValues()
{
    static const TPerThread<CEmptyValues> values;
    return values.Value();
}

/// The thread's empty value of a type. A caller may have written to it against the contract, so each use begins with an
/// empty one.
template <class VALUE>
std::conditional_t<std::is_arithmetic_v<VALUE>, const VALUE&, VALUE&> EmptyValue()
{
    if constexpr (std::is_arithmetic_v<VALUE>)
    {
        static constexpr VALUE kZero = 0;
        return kZero;
    }
    else
    {
        VALUE& value = std::get<VALUE>(EmptyValues());
        value = VALUE();
        return value;
    }
}

} // namespace

template <class VALUE>
typename TAttributeAccess<VALUE>::CReference TAttributeAccess<VALUE>::Get(CDcmElementSet& set, int position)
{
    CDcmElement* element = set.FindDeclared(position);
    auto* values = element != nullptr ? SMembersOf<VALUE>::Get(*element) : nullptr;
    if (values == nullptr)
    {
        return EmptyValue<VALUE>();
    }
    if constexpr (std::is_same_v<VALUE, CString>)
    {
        if (values->IsEmpty())
        {
            values->Add(CString());
        }
        return (*values)[0];
    }
    else if constexpr (std::is_arithmetic_v<VALUE>)
    {
        // The array's type may be another name of VALUE: on the 32-bit target DWORD is long and UINT is not.
        static_assert(sizeof(VALUE) == sizeof(*values->GetData()));
        return values->IsEmpty() ? EmptyValue<VALUE>() : reinterpret_cast<const VALUE&>(*values->GetData());
    }
    else
    {
        return *values;
    }
}

template <class VALUE>
void TAttributeAccess<VALUE>::Set(CDcmElementSet& set, int position, const VALUE& value)
{
    if (CDcmElement* element = set.FindDeclared(position))
    {
        if constexpr (std::is_same_v<VALUE, CString>)
        {
            // The text may be the element's own, which a longer list of texts would move.
            SMembersOf<VALUE>::Set(*element, CString(value));
        }
        else
        {
            SMembersOf<VALUE>::Set(*element, value);
        }
    }
}

template struct VARNOTIX_EXPORT TAttributeAccess<CString>;
template struct VARNOTIX_EXPORT TAttributeAccess<CStringArray>;
template struct VARNOTIX_EXPORT TAttributeAccess<WORD>;
template struct VARNOTIX_EXPORT TAttributeAccess<CWordArray>;
template struct VARNOTIX_EXPORT TAttributeAccess<DWORD>;
template struct VARNOTIX_EXPORT TAttributeAccess<CUIntArray>;
template struct VARNOTIX_EXPORT TAttributeAccess<double>;
template struct VARNOTIX_EXPORT TAttributeAccess<CDoubleArray>;
template struct VARNOTIX_EXPORT TAttributeAccess<CFloatArray>;
template struct VARNOTIX_EXPORT TAttributeAccess<CByteArray>;
