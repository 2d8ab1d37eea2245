#include "Varnotix/codec/StandardEncoder.h"

#include "Varnotix/codec/ElementHeader.h"
#include "Varnotix/codec/FrameWriter.h"
#include "Varnotix/codec/ItemTags.h"
#include "Varnotix/element/DcmFrameList.h"
#include "Varnotix/element/ElementBody.h"
#include "Varnotix/registry/DcmRegistry.h"

#include <algorithm>
#include <string>
#include <utility>

using namespace Varnotix;

namespace
{

constexpr DWORD kLongestShortValue = 0xFFFE; // The longest even length of 16 bits.
constexpr DWORD kGroupLengthSize = 4;

bool HasLongHeader(int vr, const CDcmElement* element)
{
    return HasLongForm(vr) || (element != nullptr && element->LaterVr() != Varnotix::ELaterVr::None);
}

/// Readers of implicit VR know other sequences by their undefined length only.
bool IsListedSequence(DWORD tag)
{
    const CDcmEntry* entry = CDcmRegistry::Global().LookUpPublicTag(tag);
    return entry != nullptr && static_cast<int>(entry->vr) == VR_SQ;
}

DWORD Padded(std::size_t size)
{
    return static_cast<DWORD>(size + size % 2);
}

/// The byte that makes a value even (PS3.5 section 6.2).
char PadByte(int vr)
{
    return VrKind(vr) == EVrKind::Text && vr != VR_UI ? ' ' : '\0';
}

} // namespace

/// Appends a step without a length. It can be changed until the next one is appended.
inline CStandardEncoder::SStep& CStandardEncoder::AddStep(EStep step, DWORD tag, const CDcmElement* element, int syntax,
                                                          int vr)
{
    const bool isLong = syntax != SYNTAX_IMPLICIT_LITTLE && HasLongHeader(vr, element);
    SStep& added = AddTag(step, tag, 0, syntax);
    added.element = element;
    added.vr = static_cast<BYTE>(vr);
    added.isLong = isLong;
    return added;
}

/// Appends the step of an item or a delimiter.
inline CStandardEncoder::SStep& CStandardEncoder::AddTag(EStep step, DWORD tag, DWORD length, int syntax)
{
    // Made in its place: a copy would wait for the many small parts that it is made of.
    SStep& added = m_steps.emplace_back();
    added.tag = tag;
    added.length = length;
    added.step = step;
    added.syntax = static_cast<BYTE>(syntax);
    return added;
}

/// The elements by ascending keys; those of equal keys keep their order.
/// @param ordered holds them where they are in another order.
template <class KEY>
CStandardEncoder::Elements CStandardEncoder::InOrder(Elements elements, const KEY& key, std::vector<CObject*>& ordered)
{
    std::uint64_t last = 0;
    const auto follows = [&](const CObject* element)
    {
        const std::uint64_t next = key(element);
        return std::exchange(last, next) <= next;
    };
    if (std::all_of(elements.begin(), elements.end(), follows))
    {
        return elements;
    }
    ordered.assign(elements.begin(), elements.end());
    std::stable_sort(ordered.begin(), ordered.end(),
                     [key](const CObject* left, const CObject* right) { return key(left) < key(right); });
    return ordered;
}

/// How many steps to make room for when so many come next: many at once, also where each sequence has few.
std::size_t CStandardEncoder::RoomFor(std::size_t steps) const
{
    const std::size_t needed = m_steps.size() + steps;
    return needed <= m_steps.capacity() ? needed : std::max(needed, 2 * m_steps.capacity());
}

void CStandardEncoder::Plan(const CDcmElementSet& set)
{
    m_steps.clear();
    const CElementBody& body = CElementBody::Of(set);
    Elements elements(body.list.begin(), body.list.end());
    std::vector<CObject*> completed;
    if (m_output.needsMeta && body.Find(Tag::kTransferSyntaxUid) == nullptr)
    {
        m_transferSyntax = std::make_unique<CDcmElement>(Tag::kTransferSyntaxUid);
        m_transferSyntax->AddText(Varnotix::UidOfSyntax(m_output.syntax));
        completed.reserve(elements.size() + 1);
        completed.assign(elements.begin(), elements.end());
        completed.push_back(m_transferSyntax.get());
        elements = completed;
    }
    // Private tags of group 0001 would come before the file meta information otherwise.
    const auto key = [](const CObject* object)
    {
        const CDcmElement& element = ElementOf(object);
        return element.HasGroup(Tag::kMetaGroup) ? element.Tag() & 0xFFFFU : element.Tag() | std::uint64_t{1} << 32U;
    };
    std::vector<CObject*> ordered;
    elements = InOrder(elements, key, ordered);
    const auto bits = std::find_if(elements.begin(), elements.end(),
                                   [](const CObject* object) { return ElementOf(object).HasTag(Tag::kBitsAllocated); });
    int bitsAllocated = 0;
    if (bits != elements.end())
    {
        const CValueBytes value = ElementOf(*bits).ValueBytes();
        bitsAllocated = value.Size() >= 2 ? Word(value.Data(), false) : 0;
    }
    m_steps.reserve(elements.size() + elements.size() / 4 + 1);
    m_size = PlanDataSet(elements, {m_output.syntax, 0, bitsAllocated});
}

bool CStandardEncoder::WantsGroupLength(int group, const SDataSet& dataSet) const
{
    return m_output.groupLengths || (dataSet.depth == 0 && group == Tag::kMetaGroup);
}

/// @param elements those of one data set, in tag order.
/// @return the size in bytes.
std::uint64_t CStandardEncoder::PlanDataSet(Elements elements, const SDataSet& dataSet)
{
    std::uint64_t total = 0;
    for (std::size_t i = 0; i < elements.size();)
    {
        const CDcmElement& first = ElementOf(elements[i]);
        const int group = first.Group();
        const bool isMeta = dataSet.depth == 0 && group == Tag::kMetaGroup;
        const SDataSet part{isMeta ? static_cast<int>(SYNTAX_EXPLICIT_LITTLE) : dataSet.syntax, dataSet.depth,
                            dataSet.bitsAllocated};
        // A sequence under such a tag breaks PS3.5; it is written as the sequence that it is.
        const bool hasLength = Tag::IsGroupLength(first.Tag()) && !first.HasVr(VR_SQ);
        const std::size_t lengthStep = m_steps.size();
        const bool writesLength = hasLength || WantsGroupLength(group, dataSet);
        if (writesLength)
        {
            AddStep(EStep::GroupLength, Tag::Make(group, 0), nullptr, part.syntax, VR_UL);
        }
        i += hasLength ? 1U : 0U;
        std::uint64_t size = 0;
        for (; i < elements.size() && ElementOf(elements[i]).Group() == group; ++i)
        {
            size += PlanElement(ElementOf(elements[i]), part);
        }
        if (isMeta && size == 0)
        {
            m_steps.pop_back(); // A host took the file meta information out; only its length was left.
        }
        else if (writesLength)
        {
            m_steps[lengthStep].length = static_cast<DWORD>(size);
            total += kShortHeader + kGroupLengthSize;
        }
        total += size;
    }
    return total;
}

/// @return the size of header and value.
std::uint64_t CStandardEncoder::PlanElement(const CDcmElement& element, const SDataSet& dataSet)
{
    if (element.Frames() != nullptr)
    {
        return PlanFrames(element, dataSet);
    }
    return element.HasVr(VR_SQ) ? PlanSequence(element, dataSet) : PlanValue(element, dataSet.syntax);
}

std::uint64_t CStandardEncoder::PlanValue(const CDcmElement& element, int syntax)
{
    const int vr = element.Vr() < kNamedVrCount ? element.Vr() : static_cast<int>(VR_UN);
    SStep& step = AddStep(EStep::Value, element.Tag(), &element, syntax, vr);
    step.length = Padded(element.ValueBytes().Size());
    if (step.length > kLongestShortValue && syntax != SYNTAX_IMPLICIT_LITTLE && !step.isLong)
    {
        step.vr = VR_UN; // PS3.5 section 6.2.2
        step.isLong = true;
    }
    return std::uint64_t{HeaderSize(step)} + step.length;
}

bool CStandardEncoder::IsEncapsulated(const CDcmElement& element, const SDataSet& dataSet) const
{
    const CDcmFrameList::EForm readForm = element.Frames()->ReadForm();
    if (readForm != CDcmFrameList::FORM_UNKNOWN)
    {
        return readForm == CDcmFrameList::FORM_ENCAPSULATED;
    }
    return dataSet.depth == 0 && m_output.pixelForm == Varnotix::EPixelForm::Encapsulated;
}

std::uint64_t CStandardEncoder::PlanFrames(const CDcmElement& element, const SDataSet& dataSet)
{
    const bool encapsulated = IsEncapsulated(element, dataSet);
    const bool wasRead = element.Frames()->ReadForm() != CDcmFrameList::FORM_UNKNOWN;
    int vr = element.Vr() < kNamedVrCount ? element.Vr() : static_cast<int>(VR_UN);
    if (!wasRead)
    {
        // PS3.5 sections A.2 and A.4: encapsulated frames are OB, and so are native ones of 8 bits or less.
        vr = encapsulated ? VR_OB : dataSet.bitsAllocated > 8 ? static_cast<int>(VR_OW) : vr;
    }
    const CFrameWriter frames(*element.Frames(), encapsulated, IsBigEndian(dataSet.syntax),
                              SwapWidthOf(vr, element.LaterVr()));
    const std::uint64_t size = frames.Size();
    SStep& step = AddStep(EStep::Frames, element.Tag(), &element, dataSet.syntax, vr);
    step.length = encapsulated ? kUndefinedLength : static_cast<DWORD>(size);
    step.isEncapsulated = encapsulated;
    return HeaderSize(step) + size;
}

std::uint64_t CStandardEncoder::PlanSequence(const CDcmElement& element, const SDataSet& dataSet)
{
    const bool isUnknown = element.Form() == CDcmElement::FORM_UNKNOWN && dataSet.syntax != SYNTAX_IMPLICIT_LITTLE;
    const bool isUndefined = element.Form() != CDcmElement::FORM_DEFINED ||
                             (dataSet.syntax == SYNTAX_IMPLICIT_LITTLE && !IsListedSequence(element.Tag()));
    const std::size_t place = m_steps.size();
    SStep& step = AddStep(EStep::Sequence, element.Tag(), &element, dataSet.syntax, isUnknown ? VR_UN : VR_SQ);
    step.length = kUndefinedLength;
    const DWORD header = HeaderSize(step);
    SDataSet inside = dataSet;
    inside.depth = dataSet.depth + 1;
    inside.syntax = isUnknown ? static_cast<int>(SYNTAX_IMPLICIT_LITTLE) : dataSet.syntax;
    std::uint64_t size = element.Items() != nullptr ? PlanItems(*element.Items(), inside) : 0;
    if (isUndefined || size >= kUndefinedLength)
    {
        AddTag(EStep::Delimiter, Tag::kSequenceDelimitationItem, 0, inside.syntax);
        size += kItemHeaderSize;
    }
    else
    {
        m_steps[place].length = static_cast<DWORD>(size);
    }
    return header + size;
}

std::uint64_t CStandardEncoder::PlanItems(const CDcmElementSet& items, const SDataSet& dataSet)
{
    const CElementBody& body = CElementBody::Of(items);
    const int count = items.ItemCount();
    const auto itemOf = [count](const CObject* object) { return std::clamp(ElementOf(object).Item(), 1, count); };
    // Elements without an item count to the first one.
    const auto key = [itemOf](const CObject* object)
    { return static_cast<std::uint64_t>(itemOf(object)) << 32U | ElementOf(object).Tag(); };
    std::vector<CObject*> ordered;
    const Elements elements = InOrder({body.list.begin(), body.list.end()}, key, ordered);
    m_steps.reserve(RoomFor(2 * static_cast<std::size_t>(count) + elements.size()));
    std::uint64_t total = 0;
    std::size_t next = 0;
    for (int item = 1; item <= count; ++item)
    {
        const std::size_t first = next;
        while (next < elements.size() && itemOf(elements[next]) == item)
        {
            ++next;
        }
        const std::size_t place = m_steps.size();
        AddTag(EStep::Item, Tag::kItem, kUndefinedLength, dataSet.syntax);
        std::uint64_t size = PlanDataSet(elements.subspan(first, next - first), dataSet);
        if (body.itemForms.IsUndefined(item) || size >= kUndefinedLength)
        {
            AddTag(EStep::Delimiter, Tag::kItemDelimitationItem, 0, dataSet.syntax);
            size += kItemHeaderSize;
        }
        else
        {
            m_steps[place].length = static_cast<DWORD>(size);
        }
        total += kItemHeaderSize + size;
    }
    return total;
}

inline void CStandardEncoder::WriteHeader(const SStep& step, COutputBuffer& out)
{
    const DWORD length = step.step == EStep::GroupLength ? kGroupLengthSize : step.length;
    BYTE* header = out.Room(HeaderSize(step));
    if (step.syntax == SYNTAX_IMPLICIT_LITTLE)
    {
        PutImplicitHeader(header, step.tag, length);
        return;
    }
    const bool isLater = step.element != nullptr && step.element->LaterVr() != Varnotix::ELaterVr::None;
    PutExplicitHeader(header, step.tag, isLater ? step.element->VrLetters() : VrLettersOf(step.vr), step.isLong, length,
                      IsBigEndian(step.syntax));
}

inline void CStandardEncoder::WriteValue(const SStep& step, COutputBuffer& out)
{
    const CValueBytes value = step.element->ValueBytes();
    const std::size_t width = IsBigEndian(step.syntax) ? SwapWidthOf(step.vr, step.element->LaterVr()) : 1;
    const bool isPadded = value.Size() < step.length;
    if (width > 1 && isPadded)
    {
        // The padding may complete a number, and then changes places with its other bytes.
        const std::string padded = std::string(value.View()) + PadByte(step.element->Vr());
        PutSwapped(reinterpret_cast<const BYTE*>(padded.data()), padded.size(), width, out);
        return;
    }
    if (width > 1)
    {
        PutSwapped(value.Data(), value.Size(), width, out);
    }
    else
    {
        out.Put(value.Data(), value.Size());
    }
    if (isPadded)
    {
        *out.Room(1) = static_cast<BYTE>(PadByte(step.element->Vr()));
    }
}

void CStandardEncoder::Write(COutputBuffer& out) const
{
    for (const SStep& step : m_steps)
    {
        const bool bigEndian = IsBigEndian(step.syntax);
        switch (step.step)
        {
        case EStep::Item:
        case EStep::Delimiter:
            PutItemTag(out, step.tag, bigEndian, step.length);
            break;
        case EStep::Sequence:
            WriteHeader(step, out);
            break;
        case EStep::GroupLength:
            WriteHeader(step, out);
            PutDoubleWord(out.Room(kGroupLengthSize), step.length, bigEndian);
            break;
        case EStep::Frames:
            WriteHeader(step, out);
            CFrameWriter(*step.element->Frames(), step.isEncapsulated, bigEndian,
                         SwapWidthOf(step.vr, step.element->LaterVr()))
                .Write(out);
            break;
        case EStep::Value:
            WriteHeader(step, out);
            WriteValue(step, out);
            break;
        }
    }
}
