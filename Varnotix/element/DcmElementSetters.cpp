// How single values, arrays and texts get into an element.

#include "Varnotix/element/DcmElement.h"
#include "Varnotix/element/DcmElementSet.h"
#include "Varnotix/element/DcmFrameList.h"
#include "Varnotix/element/TypedValue.h"

bool CDcmElement::AddText(const CString& text)
{
    CStringArray* texts = Texts();
    if (texts == nullptr)
    {
        return false;
    }
    if (Vm() == 1)
    {
        CStringArray value; // Filled first, for the caller may hand in this element's own text.
        if (!text.IsEmpty())
        {
            value.Add(text);
        }
        texts->Swap(value);
        return true;
    }
    if (text.IsEmpty() || Vm() == 0 || (Vm() != -1 && texts->GetSize() > Vm()))
    {
        return false;
    }
    texts->Add(text);
    return true;
}

bool CDcmElement::SetTexts(const CStringArray& texts)
{
    CStringArray* mine = Texts();
    if (mine == nullptr)
    {
        return false;
    }
    CStringArray before;
    mine->Swap(before);
    bool taken = false;
    // The caller may hand in this element's own array.
    for (const CString& text : &texts == mine ? before : texts)
    {
        taken = AddText(text);
    }
    return taken;
}

template <class ARRAY, class VALUE>
bool CDcmElement::AddNumber(ARRAY& values, VALUE value)
{
    if (Vm() == 1)
    {
        values.RemoveAll();
    }
    else if (Vm() != -1 && values.GetSize() > Vm())
    {
        return false;
    }
    values.Add(value);
    return true;
}

bool CDcmElement::AddWord(WORD value)
{
    CWordArray* words = TakesValue(EVrKind::Words) ? Words() : nullptr;
    return words != nullptr && AddNumber(*words, value);
}

bool CDcmElement::AddInteger(DWORD value)
{
    if (TakesValue(EVrKind::Words))
    {
        return AddWord(static_cast<WORD>(value & 0xFFFFU));
    }
    if (TakesValue(EVrKind::Bytes))
    {
        CByteArray bytes;
        for (unsigned shift = 0; shift < 32; shift += 8)
        {
            bytes.Add(static_cast<BYTE>(value >> shift));
        }
        return SetBytes(bytes);
    }
    CUIntArray* integers = Integers();
    return integers != nullptr && Vm() != 0 && AddNumber(*integers, static_cast<UINT>(value));
}

bool CDcmElement::AddFloat(float value)
{
    CFloatArray* floats = m_vr == VR_FL ? Floats() : nullptr;
    return floats != nullptr && Vm() != 0 && AddNumber(*floats, value);
}

bool CDcmElement::AddDouble(double value)
{
    CDoubleArray* doubles = Doubles();
    return doubles != nullptr && Vm() != 0 && AddNumber(*doubles, value);
}

bool CDcmElement::SetWords(const CWordArray& values)
{
    if (m_entry != nullptr && HoldsFrames())
    {
        ForcePixelVr(VR_OW);
        m_frames->AddFrame(values);
        return true;
    }
    if (CWordArray* words = Words())
    {
        *words = values;
        return true;
    }
    if (CUIntArray* integers = Integers())
    {
        CUIntArray widened;
        widened.Reserve(values.GetSize());
        for (const WORD value : values)
        {
            widened.Add(value);
        }
        integers->Swap(widened);
        return true;
    }
    if (CByteArray* bytes = Bytes())
    {
        bytes->Assign(reinterpret_cast<const BYTE*>(values.GetData()), values.GetSize() * 2);
        return true;
    }
    return false;
}

bool CDcmElement::SetIntegers(const CUIntArray& values)
{
    if (CUIntArray* integers = Integers())
    {
        *integers = values;
        return true;
    }
    if (!TakesValue(EVrKind::Words))
    {
        return false;
    }
    CWordArray narrowed;
    narrowed.Reserve(values.GetSize());
    for (const UINT value : values)
    {
        narrowed.Add(static_cast<WORD>(value & 0xFFFFU));
    }
    Words()->Swap(narrowed);
    return true;
}

bool CDcmElement::SetFloats(const CFloatArray& values)
{
    CFloatArray* floats = Floats();
    if (floats == nullptr)
    {
        return false;
    }
    *floats = values;
    return true;
}

bool CDcmElement::SetDoubles(const CDoubleArray& values)
{
    CDoubleArray* doubles = Doubles();
    if (doubles == nullptr)
    {
        return false;
    }
    *doubles = values;
    return true;
}

bool CDcmElement::SetBytes(const CByteArray& bytes)
{
    if (m_entry != nullptr && m_frames)
    {
        if (m_vr != VR_OB)
        {
            return false;
        }
        m_frames->AddFrame(bytes);
        return true;
    }
    CByteArray* mine = Bytes();
    if (mine == nullptr)
    {
        return false;
    }
    *mine = bytes;
    return true;
}

bool CDcmElement::SetItems(const CDcmElementSet& items)
{
    if (!TakesValue(EVrKind::Items) || !m_items)
    {
        return false;
    }
    m_items->ReplaceItems(items);
    return true;
}
