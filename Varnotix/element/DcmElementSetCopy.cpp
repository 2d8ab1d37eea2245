// How element sets share, copy, merge and take over elements.

#include "Varnotix/element/DcmElementSet.h"
#include "Varnotix/element/ElementBody.h"

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <vector>

namespace
{

/// True when the tags ascend and none stands twice.
bool InStrictTagOrder(const CObList& list)
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

void CDcmElementSet::CopyByValue(const CDcmElementSet& other)
{
    if (this != &other)
    {
        auto body = std::make_unique<CElementBody>();
        other.CopyElementsInto(body->list);
        body->ListChanged();
        CopyDeclared(other);
        TakeBody(body.release()); // The other set may lie in the body that goes.
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
    if (mine.IsUnfilledLike(others))
    {
        mine.CopyUnfilled(others);
        CopyDeclared(other);
        return;
    }
    CObList copies;
    other.CopyElementsInto(copies);
    mine.Clear();
    mine.SetList({copies.begin(), copies.end()});
    CopyDeclared(other);
    mine.Rebind(false);
}

void CDcmElementSet::ReplaceItems(const CDcmElementSet& items)
{
    if (SharesBodyWith(items))
    {
        return;
    }
    CObList copies;
    items.CopyElementsInto(copies);
    CElementBody& mine = ElementsAsIs();
    mine.Clear();
    mine.SetList({copies.begin(), copies.end()});
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

void CDcmElementSet::Merge(const CDcmElementSet& other)
{
    if (SharesBodyWith(other))
    {
        return;
    }
    std::vector<CObject*> merged;
    std::unordered_map<DWORD, const CDcmElement*> known;
    for (const CObject* object : other.Body().list)
    {
        const CDcmElement& element = ElementOf(object);
        if (Find(element) != nullptr)
        {
            known.emplace(element.Tag(), &element);
        }
        else
        {
            merged.push_back(new CDcmElement(element));
        }
    }
    CElementBody* body = new CElementBody;
    if (Body().references == 1)
    {
        // Nobody else sees the old body, so its elements move into the new one as they are.
        merged.insert(merged.end(), Body().list.begin(), Body().list.end());
        Elements().SetList({});
    }
    else
    {
        CObList copies;
        CopyElementsInto(copies);
        merged.insert(merged.end(), copies.begin(), copies.end());
    }
    body->SetList(merged);
    TakeBody(body);
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
    if (Body().references != 1 || values.Body().references != 1 || Elements().IsShaped() ||
        !InStrictTagOrder(Body().list) || !InStrictTagOrder(values.Body().list))
    {
        RemoveTagsOf(values);
        Merge(values);
        Sort();
        return;
    }
    std::vector<CObject*> merged;
    std::vector<CObject*> replaced;
    merged.reserve(static_cast<std::size_t>(GetCount()) + static_cast<std::size_t>(values.GetCount()));
    replaced.reserve(static_cast<std::size_t>(values.GetCount()));
    const CObList& mine = Body().list;
    auto next = mine.begin();
    for (CObject* value : values.Body().list)
    {
        const DWORD tag = ElementOf(value).Tag();
        for (; next != mine.end() && ElementOf(*next).Tag() < tag; ++next)
        {
            merged.push_back(*next);
        }
        if (next != mine.end() && ElementOf(*next).Tag() == tag)
        {
            replaced.push_back(*next++);
        }
        merged.push_back(value);
    }
    if (!values.IsEmpty())
    {
        merged.insert(merged.end(), next, mine.end());
        Elements().SetList(merged);
        values.ForgetAll();
        for (const CObject* object : replaced)
        {
            delete object;
        }
    }
}

void CDcmElementSet::CopyNonEmptyInto(CDcmElementSet& target) const
{
    for (const CObject* object : ListOfValues())
    {
        if (!ElementOf(object).IsEmptyValue())
        {
            auto copy = std::make_unique<CDcmElement>(ElementOf(object));
            copy->PruneEmptyItems();
            target.Add(copy.release());
        }
    }
}
