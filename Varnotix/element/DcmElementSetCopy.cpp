// How element sets share, copy, merge and take over elements.

#include "Varnotix/element/DcmElementSet.h"
#include "Varnotix/element/ElementBlocks.h"
#include "Varnotix/element/ElementBody.h"

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <unordered_set>

namespace
{

/// True when the tags ascend and none occurs twice.
bool InStrictTagOrder(const CObjectList& list)
{
    return std::adjacent_find(list.begin(), list.end(),
                              [](const CObject* left, const CObject* right)
                              { return ElementOf(left).Tag() >= ElementOf(right).Tag(); }) == list.end();
}

} // namespace

void CDcmElementSet::CopyByReference(const CDcmElementSet& other)
{
    ShareBody(other);
}

void CDcmElementSet::ReplaceBody(std::unique_ptr<CElementBody> body)
{
    body->TakeBindings(ElementsAsIs());
    TakeBody(body.release());
    ElementsAsIs().Rebind(false);
}

void CDcmElementSet::CopyByValue(const CDcmElementSet& other)
{
    if (this != &other)
    {
        auto body = std::make_unique<CElementBody>();
        other.Elements().CopyElementsInto(*body);
        body->ListChanged();
        body->CopyItemForms(other.ElementsAsIs());
        CopyDeclared(other);
        ReplaceBody(std::move(body)); // The other set may lie in the body that goes.
    }
}

void CDcmElementSet::CopyIntoBody(const CDcmElementSet& other)
{
    if (SharesBodyWith(other))
    {
        return;
    }
    CDWordArray declared(other.m_declared); // The other set may lie in an element that goes.
    const CElementShape* classShape = other.m_classShape;
    ElementsAsIs().CopyFrom(other.ElementsAsIs());
    m_declared.Swap(declared);
    m_classShape = classShape;
}

void CDcmElementSet::ReplaceItems(const CDcmElementSet& items)
{
    ElementsAsIs().ReplaceItems(items.ElementsAsIs());
}

void CDcmElementSet::UpdateValuesFrom(const CDcmElementSet& other)
{
    if (SharesBodyWith(other) || other.IsEmpty())
    {
        return;
    }
    if (CElementBody& mine = ElementsAsIs(); mine.unfilled)
    {
        mine.TakeValues(other.Elements());
        return;
    }
    for (CObject* object : Body().list)
    {
        if (const CDcmElement* source = other.Find(ElementOf(object)))
        {
            ElementOf(object) = *source;
        }
    }
}

void CDcmElementSet::UpdateValuesFromItem(const CDcmElementSet& other, int item)
{
    if (SharesBodyWith(other))
    {
        return;
    }
    for (CObject* object : Body().list)
    {
        if (const CDcmElement* source = other.Elements().FindInItem(ElementOf(object).Tag(), item))
        {
            ElementOf(object) = *source;
        }
    }
}

void CDcmElementSet::Merge(const CDcmElementSet& other)
{
    if (SharesBodyWith(other))
    {
        return;
    }
    // Where both keep items, an element belongs to that of its tag in the same item.
    const bool byItem = KeepsItems() && other.KeepsItems();
    const auto keyOf = [byItem](const CDcmElement& element)
    { return element.Tag() | (byItem ? static_cast<std::uint64_t>(ItemOf(element)) << 32U : 0U); };
    std::unordered_set<std::uint64_t, STagHash> mine; // Where Find does not answer.
    for (const CObject* object : Body().list)
    {
        if (byItem)
        {
            mine.insert(keyOf(ElementOf(object)));
        }
    }
    CDcmListBody merged;
    CElementBlocks blocks;
    std::unordered_map<std::uint64_t, const CDcmElement*, STagHash> known;
    for (const CObject* object : other.Body().list)
    {
        const CDcmElement& element = ElementOf(object);
        if (byItem ? mine.contains(keyOf(element)) : Find(element) != nullptr)
        {
            known.emplace(keyOf(element), &element);
        }
        else
        {
            merged.Append(blocks.Make<CDcmElement>(element));
        }
    }
    auto body = std::make_unique<CElementBody>();
    if (Body().references.IsOne())
    {
        // Nobody else sees the old body, so its elements move into the new one as they are. With the room made first,
        // nothing can fail while they are in both.
        merged.list.Reserve(merged.list.GetCount() + GetCount());
        for (CObject* object : Body().list)
        {
            merged.list.Add(object);
        }
        CObjectList moved;
        Elements().SwapList(moved);
    }
    else
    {
        Elements().CopyElementsInto(merged);
    }
    if (byItem)
    {
        std::stable_sort(merged.list.begin(), merged.list.end(),
                         [](const CObject* left, const CObject* right)
                         { return ItemOf(ElementOf(left)) < ItemOf(ElementOf(right)); });
    }
    body->SwapList(merged.list);
    body->CopyItemForms(ElementsAsIs());
    const CItemForms& forms = other.ElementsAsIs().itemForms;
    for (int item = body->itemForms.Count() + 1; item <= forms.Count(); ++item)
    {
        body->itemForms.Add(forms.IsUndefined(item));
    }
    ReplaceBody(std::move(body));
    for (CObject* object : Body().list)
    {
        const auto source = known.find(keyOf(ElementOf(object)));
        if (source != known.end())
        {
            ElementOf(object) = *source->second;
        }
    }
}

void CDcmElementSet::TakeTagsOf(CDcmElementSet& values)
{
    if (!Body().references.IsOne() || !values.Body().references.IsOne() || Elements().IsShaped() ||
        !InStrictTagOrder(Body().list) || !InStrictTagOrder(values.Body().list))
    {
        RemoveTagsOf(values);
        Merge(values);
        Sort();
        return;
    }
    CObjectList merged;
    CObjectList replaced;
    merged.Reserve(GetCount() + values.GetCount());
    replaced.Reserve(values.GetCount());
    const CObjectList& mine = Body().list;
    auto next = mine.begin();
    for (CObject* value : values.Body().list)
    {
        const DWORD tag = ElementOf(value).Tag();
        for (; next != mine.end() && ElementOf(*next).Tag() < tag; ++next)
        {
            merged.Add(*next);
        }
        if (next != mine.end() && ElementOf(*next).Tag() == tag)
        {
            replaced.Add(*next++);
        }
        merged.Add(value);
    }
    if (!values.IsEmpty())
    {
        for (; next != mine.end(); ++next)
        {
            merged.Add(*next);
        }
        Elements().SwapList(merged);
        values.ForgetAll();
        for (const CObject* object : replaced)
        {
            delete object;
        }
    }
}

void CDcmElementSet::CopyNonEmptyInto(CDcmElementSet& target) const
{
    // Elements that a read by the standard rules found empty are part of their item.
    const bool keepsItems = ElementsAsIs().keepsItems;
    CElementBlocks blocks;
    for (const CObject* object : keepsItems ? Body().list : ElementsAsIs().ListOfValues())
    {
        if (!ElementOf(object).IsEmptyValue() || (keepsItems && ElementOf(object).IsRead()))
        {
            std::unique_ptr<CDcmElement> copy = blocks.Make<CDcmElement>(ElementOf(object));
            copy->PruneEmptyItems();
            target.Add(copy.release());
        }
    }
}
