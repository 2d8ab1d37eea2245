// How raw bytes become typed values, how they are asked for, and when an element counts as empty.

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
    switch (Varnotix::VrKind(m_vr))
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
    if (Varnotix::VrKind(m_vr) == EVrKind::OtherWords)
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
    const EVrKind kind = Varnotix::VrKind(m_vr);
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
    kept.CopyItemForms(*m_items);
    if (kept.GetCount() > 0)
    {
        m_items->CopyByReference(kept);
    }
}
