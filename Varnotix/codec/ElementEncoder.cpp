#include "Varnotix/codec/ElementEncoder.h"

#include "Varnotix/codec/ElementHeader.h"
#include "Varnotix/codec/FrameEncoder.h"
#include "Varnotix/codec/ItemTags.h"
#include "Varnotix/element/DcmFrameList.h"
#include "Varnotix/element/ElementBody.h"
#include "Varnotix/element/TypedValue.h"

using namespace Varnotix;

namespace
{

constexpr char kSeparator = '\\';

/// Dates, times and ages are never padded: an odd one is malformed, and padding would hide it.
bool IsPadded(int vr)
{
    return vr != VR_AS && vr != VR_DA && vr != VR_DT && vr != VR_TM;
}

/// Empty texts are not written, and a text element forgets them when it is encoded.
void DropEmptyTexts(CStringArray& texts)
{
    int kept = 0;
    for (int i = 0; i < texts.GetSize(); ++i)
    {
        if (!texts[i].IsEmpty())
        {
            if (kept != i)
            {
                texts[kept].Swap(texts[i]);
            }
            ++kept;
        }
    }
    texts.SetSize(kept);
}

/// The bytes of typed numbers, as they lie in memory.
std::string_view BytesOf(const STypedValue& typed)
{
    return std::visit(
        [](const auto& values) -> std::string_view
        {
            using Values = std::decay_t<decltype(values)>;
            if constexpr (std::is_same_v<Values, std::monostate> || std::is_same_v<Values, CStringArray>)
            {
                return {};
            }
            else
            {
                return {reinterpret_cast<const char*>(values.GetData()),
                        static_cast<std::size_t>(values.GetSize()) * sizeof(*values.GetData())};
            }
        },
        typed.values);
}

} // namespace

inline signed char CDcmElement::SyntaxToEncode() const
{
    const bool known = m_syntax == SYNTAX_IMPLICIT_LITTLE || CElementEncoder::IsExplicit(m_syntax);
    return known ? static_cast<signed char>(m_syntax) : kOtherSyntax;
}

/// The length of texts that a host has set or that are several, without padding.
std::size_t CElementEncoder::BuiltTextSize(CDcmElement& element)
{
    std::size_t size = 0;
    if (CStringArray* texts = element.Texts())
    {
        DropEmptyTexts(*texts);
        for (const CString& text : *texts)
        {
            size += static_cast<std::size_t>(text.GetLength()) + 1;
        }
        size -= texts->IsEmpty() ? 0U : 1U;
    }
    return size;
}

inline DWORD CElementEncoder::TextSize(CDcmElement& element)
{
    const bool asRead = element.m_valueFromRaw &&
                        (element.Vm() == 1 || element.m_raw.Text().find(kSeparator) == std::string_view::npos);
    const std::size_t size = asRead ? element.m_raw.Size() : BuiltTextSize(element);
    return static_cast<DWORD>(size % 2 == 1 && IsPadded(element.m_vr) ? size + 1 : size);
}

inline DWORD CElementEncoder::ValueSize(CDcmElement& element)
{
    const EVrKind kind = VrKind(element.m_vr);
    if (element.HoldsFrames())
    {
        return CFrameEncoder(*element.m_frames, element.m_vr, element.m_syntax).Size();
    }
    switch (kind)
    {
    case EVrKind::Text:
        return TextSize(element);
    case EVrKind::Items: // Without a set; see PrepareSequence.
    case EVrKind::RawOnly:
        return 0;
    default:
        break;
    }
    if (element.m_valueFromRaw && kind != EVrKind::OtherWords)
    {
        // Whole numbers lie in the raw bytes as they will be written; a partial last one is not a value.
        return static_cast<DWORD>(element.m_raw.Size() & ~(SwapWidth(element.m_vr) - 1));
    }
    element.BuildValue();
    return element.m_typed ? static_cast<DWORD>(BytesOf(*element.m_typed).size()) : 0;
}

void CElementEncoder::Prepare(CDcmElement& element)
{
    if (!element.HasEntry())
    {
        return;
    }
    if (element.m_items)
    {
        CElementBody& items = CElementBody::Of(*element.m_items);
        items.Sort();
        std::uint64_t size = 0;
        for (CObject* object : items.list)
        {
            CDcmElement& item = ElementOf(object);
            item.SetSyntax(element.m_syntax);
            Prepare(item);
            size += EncodedSize(item);
        }
        if (VrKind(element.m_vr) == EVrKind::Items && !element.HoldsFrames())
        {
            PrepareSequence(element, size);
            return;
        }
    }
    element.m_encodedValueSize = ValueSize(element);
    element.m_encodedSyntax = element.SyntaxToEncode();
}

void CElementEncoder::PrepareSequence(CDcmElement& element, std::uint64_t size)
{
    const int count = CElementBody::Of(*element.m_items).list.GetCount();
    // Each element becomes an item. The sequence delimiter counts too.
    const std::uint64_t tags = count > 0 ? kItemHeaderSize * (static_cast<std::uint64_t>(count) + 1) : 0;
    element.m_encodedValueSize = static_cast<DWORD>(tags + size);
    element.m_encodedSyntax = element.SyntaxToEncode();
}

inline void CElementEncoder::WriteHeader(const CDcmElement& element, COutputBuffer& out)
{
    const int syntax = element.m_encodedSyntax;
    const DWORD size = HeaderSize(syntax, element.m_vr);
    const bool isEncapsulated = element.m_frames != nullptr && element.m_frames->GetCount() >= 2;
    const DWORD length = isEncapsulated ? kUndefinedLength : element.m_encodedValueSize;
    BYTE* header = out.Room(size);
    if (syntax == SYNTAX_IMPLICIT_LITTLE)
    {
        PutImplicitHeader(header, element.Tag(), length);
    }
    else if (IsExplicit(syntax))
    {
        // The short form holds the low 16 bits of a length.
        const char* letters = element.m_vr == VR_NONE ? "NO" : VrLettersOf(element.m_vr);
        PutExplicitHeader(header, element.Tag(), letters, size == kLongHeaderSize, length,
                          syntax == SYNTAX_EXPLICIT_BIG);
    }
    else
    {
        std::memset(header, 0, size); // No such syntax has a layout for the header.
    }
}

/// @return how many bytes were written.
std::size_t CElementEncoder::WriteBuiltTexts(const CDcmElement& element, COutputBuffer& out)
{
    std::size_t size = 0;
    if (const CStringArray* texts = element.Texts())
    {
        for (int i = 0; i < texts->GetSize(); ++i)
        {
            if (i > 0)
            {
                out.Put(&kSeparator, 1);
                ++size;
            }
            const std::string_view text = (*texts)[i].View();
            out.Put(text.data(), text.size());
            size += text.size();
        }
    }
    return size;
}

inline void CElementEncoder::WriteText(const CDcmElement& element, COutputBuffer& out)
{
    std::size_t size = element.m_raw.Size();
    if (element.m_valueFromRaw)
    {
        out.Put(element.m_raw.Data(), size);
    }
    else
    {
        size = WriteBuiltTexts(element, out);
    }
    if (size < element.m_encodedValueSize)
    {
        *out.Room(1) = element.m_vr == VR_UI ? 0 : ' ';
    }
}

inline void CElementEncoder::WriteValue(const CDcmElement& element, COutputBuffer& out)
{
    if (element.HoldsFrames())
    {
        CFrameEncoder(*element.m_frames, element.m_vr, element.m_encodedSyntax).Write(out);
        return;
    }
    switch (VrKind(element.m_vr))
    {
    case EVrKind::Text:
        WriteText(element, out);
        return;
    case EVrKind::Items:
        WriteItems(element, out);
        return;
    default:
        break;
    }
    const BYTE* bytes = element.m_raw.Data();
    if (!element.m_valueFromRaw && element.m_typed)
    {
        bytes = reinterpret_cast<const BYTE*>(BytesOf(*element.m_typed).data());
    }
    const std::size_t width = element.m_encodedSyntax == SYNTAX_EXPLICIT_BIG ? SwapWidth(element.m_vr) : 1;
    if (width > 1)
    {
        PutSwapped(bytes, element.m_encodedValueSize, width, out);
    }
    else
    {
        out.Put(bytes, element.m_encodedValueSize);
    }
}

void CElementEncoder::Write(const CDcmElement& element, COutputBuffer& out)
{
    if (element.m_encodedSyntax != CDcmElement::kNeverEncoded)
    {
        WriteHeader(element, out);
        WriteValue(element, out);
    }
}

void CElementEncoder::WriteItems(const CDcmElement& element, COutputBuffer& out)
{
    if (!element.m_items || element.m_items->IsEmpty())
    {
        return;
    }
    const bool bigEndian = element.m_encodedSyntax == SYNTAX_EXPLICIT_BIG;
    for (const CObject* object : CElementBody::Of(*element.m_items).list)
    {
        const CDcmElement& item = ElementOf(object);
        DWORD length = EncodedSize(item);
        if (bigEndian)
        {
            // For compatibility with existing objects, big endian item lengths have their halves in little endian
            // order (docs/conformance.md).
            length = (length >> 16U) | (length << 16U);
        }
        PutItemTag(out, Varnotix::Tag::kItem, bigEndian, length);
        Write(item, out);
    }
    PutItemTag(out, Varnotix::Tag::kSequenceDelimitationItem, bigEndian, 0);
}

void CDcmElement::Encode()
{
    CElementEncoder::Prepare(*this);
}

DWORD CDcmElement::EncodedSize() const
{
    return CElementEncoder::EncodedSize(*this);
}

// Defined here, above the element layer, because the encoded bytes are made when they are written.
void CDcmElement::Serialize(CArchive& archive)
{
    if (archive.IsStoring() && m_encodedSyntax != kNeverEncoded)
    {
        const auto syntax = m_syntax;
        m_syntax = m_encodedSyntax;
        Encode(); // The value may have changed since; header and value must agree.
        m_syntax = syntax;
        COutputBuffer out(archive);
        CElementEncoder::Write(*this, out);
        out.Flush();
    }
}
