#include "Varnotix/element/DcmElement.h"

#include "Varnotix/element/DcmElementSet.h"
#include "Varnotix/element/DcmFrameList.h"
#include "Varnotix/element/TypedValue.h"
#include "Varnotix/registry/DcmRegistry.h"
#include "Varnotix/registry/TagText.h"

#include <type_traits>

using namespace Varnotix;

IMPLEMENT_DYNCREATE(CDcmElement, CObject)

CDcmElement::CDcmElement() = default;

CDcmElement::CDcmElement(int group, int element, int vr, const CDcmEntry* entry)
    : m_entry(entry),
      m_group(static_cast<WORD>(group)),
      m_element(static_cast<WORD>(element)),
      m_vr(static_cast<BYTE>(vr >= 0 && vr < VR_UNKNOWN ? vr : static_cast<int>(VR_UNKNOWN)))
{
    if (m_vr == VR_SQ || IsPixelData())
    {
        CreateOwned();
    }
}

CDcmElement::CDcmElement(DWORD tag, const CDcmEntry* entry, std::unique_ptr<CDcmElementSet> items)
    : m_entry(entry),
      m_group(static_cast<WORD>(Tag::Group(tag))),
      m_element(static_cast<WORD>(Tag::Element(tag))),
      m_vr(VR_SQ),
      m_items(std::move(items))
{
}

CDcmElement::CDcmElement(int group, int element, int vr)
    : CDcmElement(group, element, vr, CDcmRegistry::Global().LookUpTag(group, element))
{
}

CDcmElement::CDcmElement(int group, int element)
    : m_entry(CDcmRegistry::Global().LookUpTag(group, element)),
      m_group(static_cast<WORD>(group)),
      m_element(static_cast<WORD>(element))
{
    if (m_entry != nullptr)
    {
        m_vr = static_cast<BYTE>(m_entry->vr);
    }
    CreateOwned();
}

CDcmElement::CDcmElement(DWORD tag) : CDcmElement(Tag::Group(tag), Tag::Element(tag)) {}

CDcmElement::CDcmElement(const CString& group, const CString& element)
    : CDcmElement(HexNumber(group), HexNumber(element))
{
}

CDcmElement::CDcmElement(int group, int element, const CByteArray& value) : CDcmElement(group, element)
{
    SetRawBytes(value);
}

CDcmElement::CDcmElement(const CDcmElement& other)
    : CObject(other),
      CBlockObject(other),
      m_entry(other.m_entry),
      m_group(other.m_group),
      m_element(other.m_element),
      m_vr(other.m_vr),
      m_encodedSyntax(other.m_encodedSyntax),
      m_read(other.m_read),
      m_laterVr(other.m_laterVr),
      m_form(other.m_form),
      m_valueFromRaw(other.m_valueFromRaw),
      m_syntax(other.m_syntax),
      m_encodedValueSize(other.m_encodedValueSize),
      m_item(other.m_item),
      m_raw(other.m_raw),
      m_typed(other.m_typed ? std::make_unique<STypedValue>(*other.m_typed) : nullptr)
{
    if (other.m_items)
    {
        m_items = std::make_unique<CDcmElementSet>();
        m_items->CopyIntoBody(*other.m_items);
    }
    if (other.m_frames)
    {
        m_frames = std::make_unique<CDcmFrameList>(*other.m_frames);
    }
}

CDcmElement::~CDcmElement() = default;

void CDcmElement::CreateOwned()
{
    if (m_vr == VR_SQ && m_entry != nullptr)
    {
        m_items = std::make_unique<CDcmElementSet>();
    }
    if (IsPixelData())
    {
        m_frames = std::make_unique<CDcmFrameList>();
    }
}

CDcmElement& CDcmElement::operator=(const CDcmElement& other)
{
    if (this == &other)
    {
        return *this;
    }
    const bool sameVr = m_vr == other.m_vr;
    const bool takesFrames = m_frames != nullptr && other.HoldsFrames();
    if (sameVr && !m_frames && m_vr != VR_SQ && other.m_valueFromRaw && Vm() == other.Vm())
    {
        // The other's value is still only in its raw bytes: share those and build the value here when it is needed.
        DropValues();
        m_raw = other.m_raw;
        m_read = other.m_read;
        m_laterVr = other.m_laterVr;
        m_valueFromRaw = true;
        return *this;
    }
    BuildValue();
    other.BuildValue();
    m_read = other.m_read;
    m_raw = other.m_raw;
    if (takesFrames)
    {
        DropValues();
        m_vr = other.m_vr;
        *m_frames = *other.m_frames;
    }
    else if (sameVr && m_vr == VR_SQ)
    {
        if (Tag() == other.Tag() && m_items && other.m_items)
        {
            m_items->ReplaceItems(*other.m_items);
            m_form = other.m_form;
        }
    }
    else if (sameVr)
    {
        DropValues();
        m_laterVr = other.m_laterVr;
        if (other.m_typed)
        {
            Typed().values = other.m_typed->values;
        }
    }
    return *this;
}

bool CDcmElement::operator==(const CDcmElement& other) const
{
    if (this == &other)
    {
        return true;
    }
    if (Tag() != other.Tag() || m_vr != other.m_vr)
    {
        return false;
    }
    if (m_items && other.m_items && !(*m_items == *other.m_items))
    {
        return false;
    }
    if (m_frames && other.m_frames && !(*m_frames == *other.m_frames))
    {
        return false;
    }
    // Equal bytes give equal values, except for floats, where a value that is not a number differs from itself.
    const EVrKind kind = VrKind(m_vr);
    // OW may have been given bytes beside its words, which its raw bytes do not show.
    if (m_valueFromRaw && other.m_valueFromRaw && Vm() == other.Vm() && kind != EVrKind::Floats &&
        kind != EVrKind::Doubles && kind != EVrKind::OtherWords && m_raw.SameBytes(other.m_raw))
    {
        return true;
    }
    BuildValue();
    other.BuildValue();
    static const STypedValue kNone;
    const STypedValue& mine = m_typed ? *m_typed : kNone;
    const STypedValue& theirs = other.m_typed ? *other.m_typed : kNone;
    const auto isEmpty = [](const auto& values)
    {
        if constexpr (std::is_same_v<std::decay_t<decltype(values)>, std::monostate>)
        {
            return true;
        }
        else
        {
            return values.IsEmpty();
        }
    };
    // An array that was never made equals an empty one.
    const bool valuesEqual = std::visit(
        [&](const auto& left, const auto& right)
        {
            using Left = std::decay_t<decltype(left)>;
            if constexpr (std::is_same_v<Left, std::decay_t<decltype(right)>> && !std::is_same_v<Left, std::monostate>)
            {
                return left == right;
            }
            else
            {
                return isEmpty(left) && isEmpty(right);
            }
        },
        mine.values, theirs.values);
    static const CByteArray kNoBytes;
    const CByteArray& myBytes = mine.otherWordBytes ? *mine.otherWordBytes : kNoBytes;
    const CByteArray& theirBytes = theirs.otherWordBytes ? *theirs.otherWordBytes : kNoBytes;
    return valuesEqual && myBytes == theirBytes;
}

CString CDcmElement::GroupText() const
{
    return HexText(m_group);
}

CString CDcmElement::ElementText() const
{
    return HexText(m_element);
}

void CDcmElement::SetLaterVr(Varnotix::ELaterVr vr)
{
    if (vr != Varnotix::ELaterVr::None)
    {
        m_laterVr = vr;
        m_vr = static_cast<BYTE>(Varnotix::CarrierVr(vr));
    }
}

const char* CDcmElement::VrLetters() const
{
    if (m_laterVr != Varnotix::ELaterVr::None)
    {
        return Varnotix::LaterVrText(m_laterVr);
    }
    return m_form == FORM_UNKNOWN ? VrText(VR_UN) : VrRow(m_vr).text;
}

void CDcmElement::SetSigned(bool isSigned)
{
    if (m_vr == VR_US || m_vr == VR_SS)
    {
        m_vr = isSigned ? VR_SS : VR_US;
    }
}

void CDcmElement::ForcePixelVr(int vr)
{
    if (IsPixelData() && (vr == VR_OB || vr == VR_OW))
    {
        m_vr = static_cast<BYTE>(vr);
    }
}

void CDcmElement::Exchange(CDmElement& record)
{
    record.m_present = m_read;
    record.m_group = m_group;
    record.m_element = m_element;
    record.m_vr = m_vr;
    record.m_vm = Vm();
    record.m_name = Name();
    record.m_vrText = VrName();
    if (record.m_raw)
    {
        m_raw.CopyTo(record.m_value);
    }
    else if (!record.m_value.IsEmpty())
    {
        BuildValue();
        BuildFrom(CSharedBytes::Copy(record.m_value.GetData(), static_cast<std::size_t>(record.m_value.GetSize())));
    }
}

void CDcmElement::SetRawBytes(const CByteArray& bytes)
{
    SetRawBytes(CSharedBytes::Copy(bytes.GetData(), static_cast<std::size_t>(bytes.GetSize())));
}

void CDcmElement::SetRawBytes(CSharedBytes bytes)
{
    if (bytes.IsEmpty())
    {
        return;
    }
    if (HoldsFrames())
    {
        m_raw = bytes;
        BuildFrom(bytes);
        return;
    }
    DropValues();
    m_raw = std::move(bytes);
    const EVrKind kind = VrKind(m_vr);
    m_valueFromRaw = kind != EVrKind::RawOnly && kind != EVrKind::Items;
}
