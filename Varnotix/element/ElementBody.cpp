#include "Varnotix/element/ElementBody.h"

#include "Varnotix/element/ElementBlocks.h"
#include "Varnotix/registry/TagText.h"

#include <algorithm>
#include <new>

using namespace Varnotix;

namespace
{

// Below this size a scan is cheaper than making an index.
constexpr int kScanLimit = 16;

// So many elements at the end of a sorted list are put in their places one by one.
constexpr int kFewAdded = 4;

// Most sets hold a few elements at least.
constexpr int kFirstRoom = 4;

DWORD TagOf(const CObject* object)
{
    return static_cast<const CDcmElement*>(object)->Tag();
}

bool TagLess(const CObject* left, const CObject* right)
{
    return TagOf(left) < TagOf(right);
}

} // namespace

CBodyHandle::CBodyHandle(CElementBody& body) : m_body(&body)
{
    body.references.Add();
}

CBodyHandle::~CBodyHandle()
{
    if (m_body != nullptr && m_body->references.Release())
    {
        delete m_body;
    }
}

int CElementBody::LowerBound(DWORD tag) const
{
    const auto found = std::lower_bound(list.begin(), list.end(), tag,
                                        [](const CObject* element, DWORD value) { return TagOf(element) < value; });
    return static_cast<int>(found - list.begin());
}

CDcmElement* CElementBody::Find(DWORD tag) const
{
    if (m_sorted)
    {
        CDcmElement* element = ElementAt(LowerBound(tag));
        return element != nullptr && element->Tag() == tag ? element : nullptr;
    }
    if (list.GetCount() <= kScanLimit)
    {
        const auto found =
            std::find_if(list.begin(), list.end(), [tag](const CObject* element) { return TagOf(element) == tag; });
        return found == list.end() ? nullptr : static_cast<CDcmElement*>(*found);
    }
    if (!m_firstOfTag)
    {
        auto index = std::make_unique<CTagIndex>();
        index->reserve(static_cast<std::size_t>(list.GetCount()));
        for (CObject* element : list)
        {
            index->emplace(TagOf(element), static_cast<CDcmElement*>(element));
        }
        m_firstOfTag = std::move(index);
    }
    const auto found = m_firstOfTag->find(tag);
    return found == m_firstOfTag->end() ? nullptr : found->second;
}

CDcmElement* CElementBody::FindInItem(DWORD tag, int item) const
{
    CDcmElement* first = Find(tag);
    // Items are in ascending order, so nearly always the first element of the tag answers for item 1.
    if (first == nullptr || ItemOf(*first) == item)
    {
        return first;
    }
    const auto found = std::find_if(list.begin(), list.end(),
                                    [tag, item](const CObject* element)
                                    { return TagOf(element) == tag && ItemOf(ElementOf(element)) == item; });
    return found == list.end() ? nullptr : static_cast<CDcmElement*>(*found);
}

CDcmElement* CElementBody::FindShown(DWORD tag) const
{
    return keepsItems ? FindInItem(tag, 1) : Find(tag);
}

void CElementBody::CopyItemForms(const CElementBody& other)
{
    itemForms = other.itemForms;
    selectedItem = 0;
    keepsItems = other.keepsItems;
}

CDcmElement& CElementBody::AddElement(std::unique_ptr<CDcmElement> added)
{
    CDcmElement* element = added.get();
    if (element->Item() == 0)
    {
        element->SetItem(selectedItem);
    }
    const bool inOrder = list.IsEmpty() || TagOf(list[list.GetUpperBound()]) <= element->Tag();
    if (list.GetCapacity() == 0)
    {
        list.Reserve(kFirstRoom);
    }
    list.Add(element);
    static_cast<void>(added.release());
    m_sorted = m_sorted && inOrder;
    if (m_firstOfTag)
    {
        try
        {
            m_firstOfTag->emplace(element->Tag(), element);
        }
        catch (const std::bad_alloc&)
        {
            m_firstOfTag.reset(); // The next search makes it again.
        }
    }
    return *element;
}

CDcmElement& CElementBody::AddRead(CElementBlocks& blocks, const SHeader& header, CSharedBytes&& value)
{
    if (header.vr != VR_SQ && header.tag != Tag::kPixelData)
    {
        return AddElement(
            blocks.Make<CDcmElement>(header.tag, header.vr, header.laterVr, header.entry, std::move(value)));
    }
    std::unique_ptr<CDcmElement> element;
    if (header.tag != Tag::kPixelData && header.entry != nullptr)
    {
        auto items = blocks.Make<CDcmElementSet>(blocks.Make<CElementBody>());
        element = blocks.Make<CDcmElement>(header.tag, header.entry, std::move(items));
    }
    else
    {
        element = blocks.Make<CDcmElement>(Tag::Group(header.tag), Tag::Element(header.tag), header.vr, header.entry);
    }
    element->SetRead();
    element->SetLaterVr(header.laterVr);
    element->SetRawBytes(std::move(value));
    return AddElement(std::move(element));
}

int CElementBody::IndexOf(const CDcmElement* element) const
{
    // The pointer alone is looked for: an element that is not in the list may be gone.
    const auto found = std::find(list.begin(), list.end(), element);
    return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

bool CElementBody::Unlink(const CDcmElement* element)
{
    const int index = IndexOf(element);
    if (index < 0)
    {
        return false;
    }
    list.RemoveAt(index);
    if (m_firstOfTag)
    {
        const auto indexed = m_firstOfTag->find(element->Tag());
        if (indexed != m_firstOfTag->end() && indexed->second == element)
        {
            // The next element of the tag, if any, becomes the first; a new index finds it.
            m_firstOfTag.reset();
        }
    }
    return true;
}

void CElementBody::ListChanged()
{
    m_firstOfTag.reset();
    m_sorted = std::is_sorted(list.begin(), list.end(), TagLess);
}

void CElementBody::SwapList(CObArray& elements) noexcept
{
    list.Swap(elements);
    ListChanged();
}

void CElementBody::SwapSorted(CObArray& elements) noexcept
{
    list.Swap(elements);
    m_firstOfTag.reset();
    m_sorted = true;
}

void CElementBody::NumberItems()
{
    if (itemForms.Count() == 0 && !list.IsEmpty())
    {
        itemForms.Add(false);
    }
}

void CElementBody::BeginItem(bool undefinedLength)
{
    NumberItems();
    itemForms.Add(undefinedLength);
    selectedItem = itemForms.Count();
}

void CElementBody::DestroyElements() noexcept
{
    if (!list.IsEmpty())
    {
        CObArray doomed;
        doomed.Swap(list);
        CElementBlocks::Destroy(doomed);
    }
}

void CElementBody::Clear()
{
    DestroyElements();
    unfilled = false;
    itemForms = CItemForms();
    selectedItem = 0;
    keepsItems = false;
    m_firstOfTag.reset();
    m_sorted = true;
}

void CElementBody::Sort()
{
    if (m_sorted)
    {
        return;
    }
    std::vector<CObject*> elements(list.begin(), list.end());
    // Most sets are in order but for an element or two that were added last.
    const auto unsorted = std::is_sorted_until(elements.begin(), elements.end(), TagLess);
    if (elements.end() - unsorted <= kFewAdded)
    {
        for (auto added = unsorted; added != elements.end(); ++added)
        {
            std::rotate(std::upper_bound(elements.begin(), added, *added, TagLess), added, added + 1);
        }
    }
    else
    {
        std::stable_sort(elements.begin(), elements.end(), TagLess);
    }
    list.Assign(elements.data(), static_cast<int>(elements.size()));
    m_firstOfTag.reset();
    m_sorted = true;
}

void CElementBody::TakeShape(const CElementShape& shape)
{
    m_shape = &shape;
    m_members.reserve(shape.Sequences().size());
    unfilled = true;
}

CElementShape& CElementBody::OwnShape()
{
    if (!m_ownShape)
    {
        m_ownShape = m_shape != nullptr ? std::make_unique<CElementShape>(*m_shape) : std::make_unique<CElementShape>();
        m_shape = m_ownShape.get();
    }
    return *m_ownShape;
}

void CElementBody::ForgetShape()
{
    m_members.clear();
    m_shape = nullptr;
    m_ownShape.reset();
}

bool CElementBody::HoldsAllValues() const
{
    if (!unfilled)
    {
        return true;
    }
    for (std::size_t i = 0; i < m_members.size(); ++i)
    {
        if (FindMember(i) == nullptr && !CDcmElementSet(*m_members[i]).IsEmptyOfValues())
        {
            return false;
        }
    }
    return m_shape->BeginsEmpty();
}

bool CElementBody::IsUnfilledLike(const CElementBody& other) const
{
    return unfilled && other.unfilled && m_shape == other.m_shape && m_members.size() == other.m_members.size();
}

void CElementBody::BindNext(CElementBody& member)
{
    m_members.emplace_back(member);
}

std::unique_ptr<CDcmElement> CElementBody::MakeElement(const CElementShape::SElement& shape) const
{
    if (shape.vr == VR_SQ)
    {
        const std::vector<DWORD>& tags = m_shape->Sequences();
        const auto place = static_cast<std::size_t>(std::find(tags.begin(), tags.end(), shape.tag) - tags.begin());
        if (place < m_members.size())
        {
            std::unique_ptr<CDcmElementSet> items(new CDcmElementSet(*m_members[place]));
            return std::unique_ptr<CDcmElement>(new CDcmElement(shape.tag, shape.entry, std::move(items)));
        }
    }
    return std::make_unique<CDcmElement>(Tag::Group(shape.tag), Tag::Element(shape.tag), shape.vr, shape.entry);
}

void CElementBody::Rebind(bool restore)
{
    if (m_shape == nullptr)
    {
        return;
    }
    for (std::size_t i = 0; i < m_members.size(); ++i)
    {
        CDcmElement* sequence = FindMember(i);
        CDcmElementSet member(*m_members[i]);
        if (sequence != nullptr && sequence->Items() != nullptr)
        {
            if (restore)
            {
                member.ReplaceItems(*sequence->Items());
            }
            else
            {
                member.CopyIntoBody(*sequence->Items());
            }
            sequence->Items()->CopyByReference(member);
        }
        else if (restore && sequence == nullptr)
        {
            member.EmptyValues();
        }
    }
    unfilled = unfilled || restore;
}

/// In a sorted list the new elements go to their places; after the items of a read, which keep the stream's order, they
/// go to the end.
/// @param make gives the element for a tag of the shape that is not in the list, or null for none.
template <class MAKE>
void CElementBody::AddMissing(const MAKE& make)
{
    CDcmListBody made; // Owns the new elements until they are in the list.
    CObArray all;
    all.Reserve(list.GetCount() + static_cast<int>(m_shape->Elements().size()));
    const auto* next = list.begin();
    if (!m_sorted)
    {
        all.Append(list);
        next = list.end();
    }
    for (const CElementShape::SElement& element : m_shape->Elements())
    {
        while (next != list.end() && TagOf(*next) < element.tag)
        {
            all.Add(*next++);
        }
        const bool isInOrder = m_sorted && !keepsItems;
        if (isInOrder ? next != list.end() && TagOf(*next) == element.tag : FindShown(element.tag) != nullptr)
        {
            continue;
        }
        if (std::unique_ptr<CDcmElement> missing = make(element))
        {
            all.Add(missing.get());
            made.Append(std::move(missing));
        }
    }
    if (!made.list.IsEmpty())
    {
        for (; next != list.end(); ++next)
        {
            all.Add(*next);
        }
        SwapList(all);
        made.list.RemoveAll();
    }
}

void CElementBody::Fill()
{
    AddMissing([this](const CElementShape::SElement& element) { return MakeElement(element); });
    unfilled = false;
}

/// As Find, for tags in ascending order.
/// @param start 0 at first; moves on with the tags.
CDcmElement* CElementBody::FindFrom(DWORD tag, int& start) const
{
    if (!m_sorted)
    {
        return Find(tag);
    }
    int step = 1;
    while (start + step < list.GetCount() && TagOf(list.begin()[start + step]) < tag)
    {
        start += step;
        step *= 2;
    }
    const auto* end = list.begin() + std::min(start + step + 1, list.GetCount());
    const auto* found = std::lower_bound(list.begin() + std::min(start, list.GetCount()), end, tag,
                                         [](const CObject* element, DWORD value) { return TagOf(element) < value; });
    start = static_cast<int>(found - list.begin());
    CDcmElement* element = ElementAt(start);
    return element != nullptr && element->Tag() == tag ? element : nullptr;
}

void CElementBody::TakeValues(const CElementBody& other)
{
    for (CObject* object : list)
    {
        if (const CDcmElement* value = other.Find(TagOf(object)))
        {
            ElementOf(object) = *value;
        }
    }
    int start = 0;
    AddMissing(
        [&](const CElementShape::SElement& element)
        {
            std::unique_ptr<CDcmElement> taken;
            if (const CDcmElement* value = other.FindFrom(element.tag, start))
            {
                taken = MakeElement(element);
                *taken = *value;
            }
            return taken;
        });
}

void CElementBody::CopyUnfilled(const CElementBody& other)
{
    CDcmListBody copies;
    for (const CObject* object : other.list)
    {
        copies.Append(std::make_unique<CDcmElement>(ElementOf(object)));
    }
    Clear();
    SwapList(copies.list);
    CopyItemForms(other);
    unfilled = true;
    Rebind(false);
    CopyUnshownMembers(other);
}

void CElementBody::CopyUnshownMembers(const CElementBody& other)
{
    for (std::size_t i = 0; i < m_members.size(); ++i)
    {
        if (FindMember(i) != nullptr)
        {
            continue;
        }
        CDcmElementSet member(*m_members[i]);
        if (i < other.m_members.size() && m_shape->Sequences()[i] == other.m_shape->Sequences()[i])
        {
            member.CopyIntoBody(CDcmElementSet(*other.m_members[i]));
        }
        else
        {
            member.EmptyValues();
        }
    }
}

void CElementBody::TakeBindings(CElementBody& replaced) noexcept
{
    if (replaced.references.IsOne() && !replaced.m_members.empty())
    {
        m_shape = replaced.m_shape;
        m_ownShape.swap(replaced.m_ownShape);
        m_members.swap(replaced.m_members);
    }
}
