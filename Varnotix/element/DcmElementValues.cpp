// How raw bytes become typed values, and how single values, arrays and texts get into an element.

#include "Varnotix/element/DcmElement.h"
#include "Varnotix/element/DcmElementSet.h"
#include "Varnotix/element/DcmFrameList.h"
#include "Varnotix/element/TypedValue.h"

#include <bit>
#include <cstring>

static_assert(std::endian::native == std::endian::little, "values are held as their little-endian bytes");

namespace
{

constexpr char kSeparator = '\\';

void SplitTexts(std::string_view text, int vm, CStringArray& texts)
{
    if (vm == 1)
    {
        texts.Add(CString(text));
        return;
    }
    // A separator at the very end opens no further value.
    while (!text.empty())
    {
        const std::size_t end = text.find(kSeparator);
        texts.Add(CString(text.substr(0, end)));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
}

/// Fills an array with consecutive little-endian numbers; a partial last one is dropped.
template <class ARRAY>
void TakeNumbers(const CSharedBytes& raw, ARRAY& numbers)
{
    constexpr std::size_t kWidth = sizeof(*numbers.GetData());
    const std::size_t count = raw.Size() / kWidth;
    numbers.SetSize(static_cast<int>(count));
    if (count > 0)
    {
        std::memcpy(numbers.GetData(), raw.Data(), count * kWidth);
    }
}

/// True when no text would be left after a split.
bool IsOnlySeparators(std::string_view text, int vm)
{
    return vm != 1 && text.find_first_not_of(kSeparator) == std::string_view::npos;
}

} // namespace

STypedValue& CDcmElement::Typed() const
{
    if (!m_typed)
    {
        m_typed = std::make_unique<STypedValue>();
    }
    return *m_typed;
}

void CDcmElement::DropValues()
{
    m_valueFromRaw = false;
    if (m_typed)
    {
        m_typed->values = std::monostate();
    }
}

void CDcmElement::BuildValue() const
{
    if (m_valueFromRaw)
    {
        BuildFrom(m_raw);
        m_valueFromRaw = false;
    }
}

void CDcmElement::BuildFrom(const CSharedBytes& raw) const
{
    switch (VrKind(m_vr))
    {
    case EVrKind::Text:
    {
        CStringArray texts;
        SplitTexts(raw.Text(), Vm(), texts);
        Typed().Of<CStringArray>().Swap(texts);
        break;
    }
    case EVrKind::Words:
        TakeNumbers(raw, Typed().Of<CWordArray>());
        break;
    case EVrKind::Integers:
        TakeNumbers(raw, Typed().Of<CUIntArray>());
        break;
    case EVrKind::Floats:
        TakeNumbers(raw, Typed().Of<CFloatArray>());
        break;
    case EVrKind::Doubles:
        TakeNumbers(raw, Typed().Of<CDoubleArray>());
        break;
    case EVrKind::Bytes:
    case EVrKind::OtherWords:
        if (m_frames)
        {
            m_frames->RemoveAll();
            m_frames->AddFrame(raw);
        }
        else if (m_vr == VR_OB)
        {
            raw.CopyTo(Typed().Of<CByteArray>());
        }
        else if (Vm() == 1)
        {
            // An odd last byte becomes a word of its own, with zero above it.
            CWordArray& words = Typed().Of<CWordArray>();
            words.RemoveAll();
            words.SetSize(static_cast<int>((raw.Size() + 1) / 2));
            std::memcpy(words.GetData(), raw.Data(), raw.Size());
        }
        break;
    case EVrKind::Items:
    case EVrKind::RawOnly:
        break;
    }
}

template <class ARRAY>
ARRAY* CDcmElement::ValuesOf(EVrKind kind) const
{
    if (!TakesValue(kind))
    {
        return nullptr;
    }
    BuildValue();
    return &Typed().Of<ARRAY>();
}

CStringArray* CDcmElement::Texts()
{
    return ValuesOf<CStringArray>(EVrKind::Text);
}

CWordArray* CDcmElement::Words()
{
    if (VrKind(m_vr) == EVrKind::OtherWords)
    {
        return m_frames ? nullptr : ValuesOf<CWordArray>(EVrKind::OtherWords);
    }
    return ValuesOf<CWordArray>(EVrKind::Words);
}

CUIntArray* CDcmElement::Integers()
{
    return ValuesOf<CUIntArray>(EVrKind::Integers);
}

CFloatArray* CDcmElement::Floats()
{
    return ValuesOf<CFloatArray>(EVrKind::Floats);
}

CDoubleArray* CDcmElement::Doubles()
{
    return ValuesOf<CDoubleArray>(EVrKind::Doubles);
}

CByteArray* CDcmElement::Bytes()
{
    if (m_frames)
    {
        return nullptr;
    }
    if (TakesValue(EVrKind::OtherWords))
    {
        if (!Typed().otherWordBytes)
        {
            Typed().otherWordBytes = std::make_unique<CByteArray>();
        }
        return Typed().otherWordBytes.get();
    }
    return ValuesOf<CByteArray>(EVrKind::Bytes);
}

bool CDcmElement::AddText(const CString& text)
{
    CStringArray* texts = Texts();
    if (texts == nullptr)
    {
        return false;
    }
    if (Vm() == 1)
    {
        texts->RemoveAll();
        if (!text.IsEmpty())
        {
            texts->Add(text);
        }
        return true;
    }
    if (text.IsEmpty() || Vm() == 0 || (Vm() > 1 && texts->GetSize() > Vm()))
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
    const CStringArray copy(texts); // The caller may hand in this element's own array.
    mine->RemoveAll();
    bool taken = false;
    for (const CString& text : copy)
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
    else if (Vm() >= 0 && values.GetSize() > Vm())
    {
        return false;
    }
    values.Add(value);
    return true;
}

bool CDcmElement::AddWord(WORD value)
{
    CWordArray* words = ValuesOf<CWordArray>(EVrKind::Words);
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

CString CDcmElement::JoinedText() const
{
    CString joined;
    if (const CStringArray* texts = Texts())
    {
        for (int i = 0; i < texts->GetSize(); ++i)
        {
            if (i > 0)
            {
                joined += kSeparator;
            }
            joined += (*texts)[i];
        }
    }
    return joined;
}

bool CDcmElement::IsEmptyValue() const
{
    const EVrKind kind = VrKind(m_vr);
    if (m_entry == nullptr || kind == EVrKind::RawOnly)
    {
        return false;
    }
    if (HoldsFrames())
    {
        return m_frames->GetCount() == 0;
    }
    if (kind == EVrKind::Items)
    {
        return !m_items || m_items->IsEmptyOfValues();
    }
    if (m_valueFromRaw && kind == EVrKind::Text)
    {
        return IsOnlySeparators(m_raw.Text(), Vm());
    }
    BuildValue();
    if (!m_typed)
    {
        return true;
    }
    return std::visit(
        [](const auto& values)
        {
            using Values = std::decay_t<decltype(values)>;
            if constexpr (std::is_same_v<Values, std::monostate>)
            {
                return true;
            }
            else if constexpr (std::is_same_v<Values, CStringArray>)
            {
                for (const CString& text : values)
                {
                    if (!text.IsEmpty())
                    {
                        return false;
                    }
                }
                return true;
            }
            else
            {
                return values.IsEmpty();
            }
        },
        m_typed->values);
}

void CDcmElement::EmptyValue()
{
    if (m_entry == nullptr)
    {
        return;
    }
    if (m_items)
    {
        m_items->EmptyValues();
    }
    if (HoldsFrames())
    {
        m_frames->RemoveAll();
    }
    DropValues();
}

void CDcmElement::PruneEmptyItems()
{
    if (!m_items)
    {
        return;
    }
    CDcmElementSet kept;
    m_items->CopyNonEmptyInto(kept);
    if (kept.GetCount() > 0)
    {
        m_items->CopyByReference(kept);
    }
}
