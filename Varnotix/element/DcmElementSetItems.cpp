// The items of a sequence, in the one set that holds the elements of all of them.

#include "Varnotix/element/DcmElementSet.h"
#include "Varnotix/element/ElementBody.h"

int CDcmElementSet::ItemCount() const
{
    const int count = ElementsAsIs().itemForms.Count();
    return count > 0 || IsEmpty() ? count : 1;
}

void CDcmElementSet::BeginItem(bool undefinedLength)
{
    Elements().BeginItem(undefinedLength);
}

void CDcmElementSet::SelectItem(int item)
{
    CElementBody& body = item > 0 ? Elements() : ElementsAsIs();
    if (item > 0)
    {
        body.NumberItems();
    }
    body.selectedItem = item >= 1 && item <= body.itemForms.Count() ? item : 0;
}

void CDcmElementSet::GetItem(int item, CObList& elements) const
{
    elements.RemoveAll();
    if (item < 1 || item > ItemCount())
    {
        return;
    }
    for (CObject* object : Body().list)
    {
        if (ItemOf(ElementOf(object)) == item)
        {
            elements.AddTail(object);
        }
    }
}

CDcmElement* CDcmElementSet::FindInItem(int item, int group, int element) const
{
    using namespace Varnotix;
    return Tag::IsTag(group, element) ? Elements().FindInItem(Tag::Make(group, element), item) : nullptr;
}

bool CDcmElementSet::HasUndefinedLength(int item) const
{
    return ElementsAsIs().itemForms.IsUndefined(item);
}

void CDcmElementSet::RemoveIf(const std::function<bool(const CDcmElement&)>& condition)
{
    CElementBody& body = Elements();
    CObjectList kept;
    CObjectList removed;
    kept.Reserve(GetCount());
    for (CObject* object : body.list)
    {
        (condition(ElementOf(object)) ? removed : kept).Add(object);
    }
    body.SwapList(kept);
    for (const CObject* object : removed)
    {
        delete object;
    }
}

bool CDcmElementSet::RemoveItem(int item)
{
    if (item < 1 || item > ItemCount())
    {
        return false;
    }
    Elements().NumberItems();
    RemoveIf([item](const CDcmElement& element) { return ItemOf(element) == item; });
    CElementBody& body = Elements();
    for (CObject* object : body.list)
    {
        CDcmElement& element = ElementOf(object);
        if (element.Item() > item)
        {
            element.SetItem(element.Item() - 1);
        }
    }
    body.itemForms.Remove(item);
    body.selectedItem = 0;
    return true;
}

bool CDcmElementSet::KeepsItems() const
{
    return ElementsAsIs().keepsItems;
}

void CDcmElementSet::SetKeepsItems(bool keep)
{
    ElementsAsIs().keepsItems = keep;
}

void CDcmElementSet::CopyItemForms(const CDcmElementSet& other)
{
    ElementsAsIs().CopyItemForms(other.ElementsAsIs());
}
