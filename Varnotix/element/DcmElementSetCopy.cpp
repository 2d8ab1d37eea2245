// How element sets share, copy, merge and take over elements.

#include "Varnotix/element/DcmElementSet.h"
#include "Varnotix/element/ElementBody.h"

#include <algorithm>
#include <memory>
#include <unordered_map>

namespace
{

/// True when the tags ascend and none stands twice.
bool InStrictTagOrder(const CObArray& list)
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
        other.CopyElementsInto(*body);
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
    CElementBody& mine = ElementsAsIs();
    const CElementBody& others = other.ElementsAsIs();
    const CBodyHandle kept(other.ElementsAsIs()); // The other set may lie in an element that goes.
    if (mine.IsUnfilledLike(others))
    {
        mine.CopyUnfilled(others);
        CopyDeclared(other);
        return;
    }
    CDcmListBody copies;
    other.CopyElementsInto(copies);
    CopyDeclared(other);
    mine.Clear();
    mine.SwapList(copies.list);
    mine.CopyItemForms(others);
    mine.Rebind(false);
    mine.CopyUnshownMembers(others);
}

void CDcmElementSet::ReplaceItems(const CDcmElementSet& items)
{
    if (SharesBodyWith(items))
    {
        return;
    }
    CDcmListBody copies;
    items.CopyElementsInto(copies);
    CElementBody& mine = ElementsAsIs();
    mine.Clear();
    mine.SwapList(copies.list);
    mine.CopyItemForms(items.ElementsAsIs());
    mine.Rebind(true);
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
    CDcmListBody merged;
    std::unordered_map<DWORD, const CDcmElement*, STagHash> known;
    for (const CObject* object : other.Body().list)
    {
        const CDcmElement& element = ElementOf(object);
        if (Find(element) != nullptr)
        {
            known.emplace(element.Tag(), &element);
        }
        else
        {
            merged.Append(std::make_unique<CDcmElement>(element));
        }
    }
    auto body = std::make_unique<CElementBody>();
    if (Body().references.IsOne())
    {
        // Nobody else sees the old body, so its elements move into the new one as they are. With the room made first,
        // nothing can fail while they stand in both.
        merged.list.Reserve(merged.list.GetCount() + GetCount());
        for (CObject* object : Body().list)
        {
            merged.list.Add(object);
        }
        CObArray moved;
        Elements().SwapList(moved);
    }
    else
    {
        CopyElementsInto(merged);
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
        const auto source = known.find(ElementOf(object).Tag());
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
    CObArray merged;
    CObArray replaced;
    merged.Reserve(GetCount() + values.GetCount());
    replaced.Reserve(values.GetCount());
    const CObArray& mine = Body().list;
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
    for (const CObject* object : keepsItems ? Body().list : ListOfValues())
    {
        if (!ElementOf(object).IsEmptyValue() || (keepsItems && ElementOf(object).IsRead()))
        {
            auto copy = std::make_unique<CDcmElement>(ElementOf(object));
            copy->PruneEmptyItems();
            target.Add(copy.release());
        }
    }
}
