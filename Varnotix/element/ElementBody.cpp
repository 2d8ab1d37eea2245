#include "Varnotix/element/ElementBody.h"

#include "Varnotix/element/DcmFrameList.h"
#include "Varnotix/element/ElementBlocks.h"
#include "Varnotix/element/TypedValue.h"
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

void CElementBody::AddToIndex(CDcmElement& element) noexcept
{
    try
    {
        m_firstOfTag->emplace(element.Tag(), &element);
    }
    catch (const std::bad_alloc&)
    {
        m_firstOfTag.reset(); // The next search makes it again.
    }
}

inline CDcmElement& CElementBody::Link(std::unique_ptr<CDcmElement>&& added)
{
    CDcmElement* element = added.get();
    if (element->Item() == 0)
    {
        element->SetItem(selectedItem);
    }
    const bool inOrder = list.IsEmpty() || TagOf(list.end()[-1]) <= element->Tag();
    list.Add(element);
    static_cast<void>(added.release());
    m_sorted = m_sorted && inOrder;
    if (m_firstOfTag)
    {
        AddToIndex(*element);
    }
    return *element;
}

CDcmElement& CElementBody::AddElement(std::unique_ptr<CDcmElement> element)
{
    return Link(std::move(element));
}

/// An element that a decoder has read, neither a sequence nor Pixel Data. Defined where the only call is, which it is
/// to become part of.
inline CDcmElement::CDcmElement(DWORD tag, int vr, Varnotix::ELaterVr laterVr, const CDcmEntry* entry,
                                CSharedBytes&& raw)
    : m_entry(entry),
      m_group(static_cast<WORD>(Tag::Group(tag))),
      m_element(static_cast<WORD>(Tag::Element(tag))),
      m_vr(static_cast<BYTE>(vr)),
      m_read(true),
      m_laterVr(laterVr),
      m_valueFromRaw(!raw.IsEmpty() && VrKind(vr) != EVrKind::RawOnly),
      m_raw(std::move(raw))
{
}

/// A sequence or Pixel Data.
CDcmElement& CElementBody::AddOwner(CElementBlocks& blocks, const SHeader& header, CSharedBytes&& value)
{
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
    return Link(std::move(element));
}

CDcmElement& CElementBody::AddRead(CElementBlocks& blocks, const SHeader& header, CSharedBytes&& value)
{
    if (header.vr == VR_SQ || header.tag == Tag::kPixelData)
    {
        return AddOwner(blocks, header, std::move(value));
    }
    return Link(blocks.Make<CDcmElement>(header.tag, header.vr, header.laterVr, header.entry, std::move(value)));
}

std::unique_ptr<CDcmElement> CElementBody::Replace(int index, std::unique_ptr<CDcmElement> element) noexcept
{
    std::unique_ptr<CDcmElement> replaced(ElementAt(index));
    list[index] = element.release();
    m_firstOfTag.reset();
    return replaced;
}

int CElementBody::IndexOf(const CDcmElement* element) const
{
    // Compare addresses only: an element that is not in the list may already be destroyed.
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

void CElementBody::SwapList(CObjectList& elements) noexcept
{
    list.Swap(elements);
    ListChanged();
}

void CElementBody::SwapSorted(CObjectList& elements) noexcept
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

/// The body of the element's items, if no other handle shares it; the element must be destroyed then.
CElementBody* CElementBody::TakeItems(CDcmElement& element) noexcept
{
    CDcmElementSet* items = element.Items();
    if (items == nullptr || items->BodyAsIs().list.IsEmpty() || !items->BodyAsIs().references.IsOne())
    {
        return nullptr;
    }
    return static_cast<CElementBody*>(items->LeaveBody());
}

/// Sequences are destroyed one after the other and not from within each other, which takes longer, and stack.
void CElementBody::DestroyElements() noexcept
{
    if (list.IsEmpty())
    {
        return;
    }
    CElementBlocks::CRelease places;
    CViewRelease values; // Those of one read lie in few chunks, too.
    CObjectList doomed;
    doomed.Swap(list);
    CElementBody* waiting = nullptr;
    while (true)
    {
        for (CObject* object : doomed)
        {
            auto* element = static_cast<CDcmElement*>(object);
            if (CElementBlocks::BlockOf(element) != nullptr)
            {
                values.Take(element->m_raw);
                if (CElementBody* items = TakeItems(*element))
                {
                    items->m_next = waiting;
                    waiting = items;
                }
            }
            places.Destroy(element);
        }
        if (waiting == nullptr)
        {
            return;
        }
        CElementBody* body = waiting;
        waiting = body->m_next;
        doomed.RemoveAll();
        doomed.Swap(body->list);
        places.Destroy(body);
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
    // Most sets are in order but for an element or two that were added last.
    CObject** const unsorted = std::is_sorted_until(list.begin(), list.end(), TagLess);
    if (list.end() - unsorted <= kFewAdded)
    {
        for (CObject** added = unsorted; added != list.end(); ++added)
        {
            std::rotate(std::upper_bound(list.begin(), added, *added, TagLess), added, added + 1);
        }
    }
    else
    {
        std::stable_sort(list.begin(), list.end(), TagLess);
    }
    m_firstOfTag.reset();
    m_sorted = true;
}
