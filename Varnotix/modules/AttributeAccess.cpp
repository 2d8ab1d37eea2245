#include "Varnotix/modules/AttributeAccess.h"

namespace
{

/// The library-wide empty value of a type. A caller may have written to it against the contract, so each use begins
/// with an empty one.
template <class VALUE>
VALUE& EmptyValue()
{
    static VALUE value;
    value = VALUE();
    return value;
}

/// The array of an element, chosen by one of the element's getters, or the empty one.
template <class ARRAY>
ARRAY& ArrayOf(CDcmElementSet& set, int position, ARRAY* (CDcmElement::*values)())
{
    CDcmElement* element = set.FindDeclared(position);
    ARRAY* array = element != nullptr ? (element->*values)() : nullptr;
    return array != nullptr ? *array : EmptyValue<ARRAY>();
}

/// The first value of an element's array, or the empty one.
template <class VALUE, class ARRAY>
const VALUE& FirstOf(CDcmElementSet& set, int position, ARRAY* (CDcmElement::*values)())
{
    ARRAY& array = ArrayOf(set, position, values);
    if (array.IsEmpty())
    {
        return EmptyValue<VALUE>();
    }
    // The array's type may be another name of VALUE: on the 32-bit target DWORD is long and UINT is not.
    static_assert(sizeof(VALUE) == sizeof(*array.GetData()));
    return reinterpret_cast<const VALUE&>(*array.GetData());
}

template <class VALUE>
void SetValue(CDcmElementSet& set, int position, bool (CDcmElement::*setter)(VALUE), VALUE value)
{
    if (CDcmElement* element = set.FindDeclared(position))
    {
        (element->*setter)(value);
    }
}

} // namespace

CString& CTextAccess::Get(CDcmElementSet& set, int position)
{
    CDcmElement* element = set.FindDeclared(position);
    CStringArray* texts = element != nullptr ? element->Texts() : nullptr;
    if (texts == nullptr)
    {
        return EmptyValue<CString>();
    }
    if (texts->IsEmpty())
    {
        texts->Add(CString());
    }
    return (*texts)[0];
}

void CTextAccess::Set(CDcmElementSet& set, int position, const CString& value)
{
    SetValue<const CString&>(set, position, &CDcmElement::AddText, CString(value));
}

CStringArray& CTextListAccess::Get(CDcmElementSet& set, int position)
{
    return ArrayOf(set, position, static_cast<CStringArray* (CDcmElement::*)()>(&CDcmElement::Texts));
}

void CTextListAccess::Set(CDcmElementSet& set, int position, const CStringArray& value)
{
    SetValue<const CStringArray&>(set, position, &CDcmElement::SetTexts, value);
}

const WORD& CWordAccess::Get(CDcmElementSet& set, int position)
{
    return FirstOf<WORD>(set, position, static_cast<CWordArray* (CDcmElement::*)()>(&CDcmElement::Words));
}

void CWordAccess::Set(CDcmElementSet& set, int position, WORD value)
{
    SetValue(set, position, &CDcmElement::AddWord, value);
}

CWordArray& CWordListAccess::Get(CDcmElementSet& set, int position)
{
    return ArrayOf(set, position, static_cast<CWordArray* (CDcmElement::*)()>(&CDcmElement::Words));
}

void CWordListAccess::Set(CDcmElementSet& set, int position, const CWordArray& value)
{
    SetValue<const CWordArray&>(set, position, &CDcmElement::SetWords, value);
}

const DWORD& CIntegerAccess::Get(CDcmElementSet& set, int position)
{
    return FirstOf<DWORD>(set, position, static_cast<CUIntArray* (CDcmElement::*)()>(&CDcmElement::Integers));
}

void CIntegerAccess::Set(CDcmElementSet& set, int position, DWORD value)
{
    SetValue(set, position, &CDcmElement::AddInteger, value);
}

CUIntArray& CIntegerListAccess::Get(CDcmElementSet& set, int position)
{
    return ArrayOf(set, position, static_cast<CUIntArray* (CDcmElement::*)()>(&CDcmElement::Integers));
}

void CIntegerListAccess::Set(CDcmElementSet& set, int position, const CUIntArray& value)
{
    SetValue<const CUIntArray&>(set, position, &CDcmElement::SetIntegers, value);
}

const double& CDoubleAccess::Get(CDcmElementSet& set, int position)
{
    return FirstOf<double>(set, position, static_cast<CDoubleArray* (CDcmElement::*)()>(&CDcmElement::Doubles));
}

void CDoubleAccess::Set(CDcmElementSet& set, int position, double value)
{
    SetValue(set, position, &CDcmElement::AddDouble, value);
}

CDoubleArray& CDoubleListAccess::Get(CDcmElementSet& set, int position)
{
    return ArrayOf(set, position, static_cast<CDoubleArray* (CDcmElement::*)()>(&CDcmElement::Doubles));
}

void CDoubleListAccess::Set(CDcmElementSet& set, int position, const CDoubleArray& value)
{
    SetValue<const CDoubleArray&>(set, position, &CDcmElement::SetDoubles, value);
}

CFloatArray& CFloatListAccess::Get(CDcmElementSet& set, int position)
{
    return ArrayOf(set, position, static_cast<CFloatArray* (CDcmElement::*)()>(&CDcmElement::Floats));
}

void CFloatListAccess::Set(CDcmElementSet& set, int position, const CFloatArray& value)
{
    SetValue<const CFloatArray&>(set, position, &CDcmElement::SetFloats, value);
}

CByteArray& CBytesAccess::Get(CDcmElementSet& set, int position)
{
    return ArrayOf(set, position, static_cast<CByteArray* (CDcmElement::*)()>(&CDcmElement::Bytes));
}

void CBytesAccess::Set(CDcmElementSet& set, int position, const CByteArray& value)
{
    SetValue<const CByteArray&>(set, position, &CDcmElement::SetBytes, value);
}
