// How bodies copy, empty and compare the values of their elements.

#include "Varnotix/element/ElementBlocks.h"
#include "Varnotix/element/ElementBody.h"

#include <algorithm>
#include <vector>

namespace
{

bool EqualLists(const CObjectList& left, const CObjectList& right)
{
    if (left.GetCount() != right.GetCount())
    {
        return false;
    }
    // Equal elements have equal tags, so both lists are brought into tag order and matched tag by tag.
    const auto inTagOrder = [](const CObjectList& list)
    {
        std::vector<const CDcmElement*> ordered;
        ordered.reserve(static_cast<std::size_t>(list.GetCount()));
        for (const CObject* object : list)
        {
            ordered.push_back(&ElementOf(object));
        }
        std::stable_sort(ordered.begin(), ordered.end(),
                         [](const CDcmElement* a, const CDcmElement* b) { return a->Tag() < b->Tag(); });
        return ordered;
    };
    const std::vector<const CDcmElement*> mine = inTagOrder(left);
    std::vector<const CDcmElement*> unmatched = inTagOrder(right);
    std::size_t first = 0; // All before it are matched; in lists of one order every search ends here at once.
    for (const CDcmElement* element : mine)
    {
        std::size_t candidate = first;
        while (candidate < unmatched.size() &&
               (unmatched[candidate] == nullptr ||
                (unmatched[candidate]->Tag() <= element->Tag() && !(*unmatched[candidate] == *element))))
        {
            ++candidate;
        }
        if (candidate == unmatched.size() || unmatched[candidate]->Tag() != element->Tag())
        {
            return false;
        }
        unmatched[candidate] = nullptr;
        while (first < unmatched.size() && unmatched[first] == nullptr)
        {
            ++first;
        }
    }
    return true;
}

} // namespace

/// A list that may lack elements which count as empty.
const CObjectList& CElementBody::ListOfValues()
{
    return HoldsAllValues() ? list : WholeList();
}

bool CElementBody::IsEmptyOfValues()
{
    const CObjectList& values = ListOfValues();
    return std::all_of(values.begin(), values.end(),
                       [](const CObject* object) { return ElementOf(object).IsEmptyValue(); });
}

void CElementBody::EmptyValues()
{
    for (CObject* object : list)
    {
        ElementOf(object).EmptyValue();
    }
    if (unfilled)
    {
        for (const CBodyHandle& member : m_members)
        {
            (*member).EmptyValues();
        }
    }
}

void CElementBody::CopyListInto(CDcmListBody& target) const
{
    target.list.Reserve(target.list.GetCount() + list.GetCount());
    CElementBlocks blocks = CElementBlocks::For<CDcmElement>(list.GetCount());
    for (const CObject* object : list)
    {
        target.Append(blocks.Make<CDcmElement>(ElementOf(object)));
    }
}

void CElementBody::CopyElementsInto(CDcmListBody& target)
{
    WholeList();
    CopyListInto(target);
}

void CElementBody::CopyFrom(CElementBody& other)
{
    if (this == &other)
    {
        return;
    }
    const CBodyHandle kept(other); // It may be that of an element that goes.
    const bool isUnfilled = IsUnfilledLike(other);
    CDcmListBody copies;
    if (isUnfilled)
    {
        other.CopyListInto(copies);
    }
    else
    {
        other.CopyElementsInto(copies);
    }
    Clear();
    SwapList(copies.list);
    CopyItemForms(other);
    unfilled = isUnfilled;
    Rebind(false);
    CopyUnshownMembers(other);
}

void CElementBody::ReplaceItems(CElementBody& items)
{
    if (this == &items)
    {
        return;
    }
    const CBodyHandle kept(items);
    CDcmListBody copies;
    items.CopyElementsInto(copies);
    Clear();
    SwapList(copies.list);
    CopyItemForms(items);
    Rebind(true);
}

bool CElementBody::IsEqual(CElementBody& other)
{
    if (this == &other)
    {
        return true;
    }
    if (IsUnfilledLike(other) && list.IsEmpty() && other.list.IsEmpty())
    {
        return std::equal(m_members.begin(), m_members.end(), other.m_members.begin(),
                          [](const CBodyHandle& left, const CBodyHandle& right) { return (*left).IsEqual(*right); });
    }
    return EqualLists(WholeList(), other.WholeList());
}
