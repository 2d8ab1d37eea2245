#include "Varnotix/element/ElementBody.h"

#include <algorithm>
#include <new>

namespace
{

// Below this size a scan is cheaper than making an index.
constexpr int kScanLimit = 16;

// So many elements at the end of a sorted list are put in their places one by one.
constexpr int kFewAdded = 4;

constexpr DWORD kGroupShift = 16;

DWORD TagOf(const CObject* object)
{
    return static_cast<const CDcmElement*>(object)->Tag();
}

bool TagLess(const CObject* left, const CObject* right)
{
    return TagOf(left) < TagOf(right);
}

} // namespace

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
        CDcmElement* element = At(LowerBound(tag));
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
        auto index = std::make_unique<std::unordered_map<DWORD, CDcmElement*>>();
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

void CElementBody::Append(CDcmElement* element)
{
    const bool inOrder = list.IsEmpty() || TagOf(list.GetTail()) <= element->Tag();
    list.AddTail(element);
    m_sorted = m_sorted && inOrder;
    if (m_firstOfTag)
    {
        try
        {
            m_firstOfTag->emplace(element->Tag(), element);
        }
        catch (const std::bad_alloc&)
        {
            m_firstOfTag.reset(); // The next search makes it anew.
        }
    }
}

int CElementBody::IndexOf(const CDcmElement* element) const
{
    const int start = m_sorted ? LowerBound(element->Tag()) : 0;
    const auto found = std::find(list.begin() + start, list.end(), element);
    return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

bool CElementBody::Unlink(const CDcmElement* element)
{
    const int index = IndexOf(element);
    if (index < 0)
    {
        return false;
    }
    list.RemoveAt(list.FindIndex(index));
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

void CElementBody::SetList(const std::vector<CObject*>& elements)
{
    list.Assign(elements);
    ListChanged();
}

void CElementBody::Clear()
{
    DestroyObjects();
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
    list.Assign(elements);
    m_firstOfTag.reset();
    m_sorted = true;
}

CElementBody::SShape& CElementBody::Shape()
{
    if (!m_shape)
    {
        m_shape = std::make_unique<SShape>();
    }
    return *m_shape;
}

void CElementBody::Rebind(bool restore)
{
    if (!m_shape)
    {
        return;
    }
    for (const auto& bound : m_shape->bound)
    {
        const int group = static_cast<int>(bound->tag >> kGroupShift);
        const int element = static_cast<int>(bound->tag & 0xFFFFU);
        CDcmElement* sequence = Find(bound->tag);
        if (sequence != nullptr && sequence->Items() != nullptr)
        {
            if (restore)
            {
                bound->member.ReplaceItems(*sequence->Items());
            }
            else
            {
                bound->member.CopyIntoBody(*sequence->Items());
            }
            sequence->Items()->CopyByReference(bound->member);
        }
        else if (restore && sequence == nullptr)
        {
            bound->member.EmptyValues();
            auto added = std::make_unique<CDcmElement>(group, element);
            if (added->Items() != nullptr)
            {
                added->Items()->CopyByReference(bound->member);
            }
            Append(added.release());
        }
    }
    if (restore)
    {
        for (const DWORD tag : m_shape->declared)
        {
            if (Find(tag) == nullptr)
            {
                Append(new CDcmElement(static_cast<int>(tag >> kGroupShift), static_cast<int>(tag & 0xFFFFU)));
            }
        }
        Sort();
    }
}
