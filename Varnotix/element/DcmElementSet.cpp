#include "Varnotix/element/DcmElementSet.h"

#include "Varnotix/element/ElementBlocks.h"
#include "Varnotix/element/ElementBody.h"
#include "Varnotix/platform/DumpContext.h"
#include "Varnotix/registry/DcmRegistry.h"
#include "Varnotix/registry/DictionaryFile.h"
#include "Varnotix/registry/EntryTable.h"
#include "Varnotix/registry/TagText.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

using namespace Varnotix;

IMPLEMENT_DYNCREATE(CDcmElementSet, CDcmList)

namespace
{

/// Adds an empty element of an entry that was looked up, in place of an element of its tag. The entry counts: another
/// thread may empty the dictionary meanwhile.
CDcmElement* AddOfEntry(CDcmElementSet& set, DWORD tag, const CDcmEntry& entry)
{
    set.Remove(tag);
    set.Add(new CDcmElement(Tag::Group(tag), Tag::Element(tag), static_cast<int>(entry.vr), &entry));
    return set.GetAt(set.GetCount() - 1);
}

} // namespace

CDcmElementSet::CDcmElementSet() : CDcmList(new CElementBody) {}

CDcmElementSet::CDcmElementSet(CElementBody& body) : CDcmList(&body)
{
    body.references.Add();
}

CDcmElementSet::CDcmElementSet(std::unique_ptr<CElementBody> body) : CDcmList(body.release()) {}

CDcmElementSet::~CDcmElementSet() = default;

CElementBody& CDcmElementSet::Elements() const
{
    return static_cast<CElementBody&>(Body());
}

CElementBody& CDcmElementSet::ElementsAsIs() const
{
    return static_cast<CElementBody&>(BodyAsIs());
}

int CDcmElementSet::GetCountAll() const
{
    int count = GetCount();
    for (const CObject* object : Body().list)
    {
        if (const CDcmElementSet* items = ElementOf(object).Items())
        {
            count += items->GetCountAll();
        }
    }
    return count;
}

CDcmElement* CDcmElementSet::Find(DWORD tag) const
{
    return Elements().Find(tag);
}

CDcmElement* CDcmElementSet::Find(int group, int element) const
{
    // A number beyond 16 bits is not a tag's, and must not be cut to one.
    return Tag::IsTag(group, element) ? Find(Tag::Make(group, element)) : nullptr;
}

CDcmElement* CDcmElementSet::Find(const CString& group, const CString& element) const
{
    return Find(TagOfTexts(group, element));
}

CDcmElement* CDcmElementSet::Find(const CDcmElement& sameTag) const
{
    return Find(sameTag.Tag());
}

bool CDcmElementSet::IsEmptyOfValues() const
{
    return ElementsAsIs().IsEmptyOfValues();
}

void CDcmElementSet::Add(CDcmElement* element)
{
    if (element != nullptr)
    {
        Elements().AddElement(std::unique_ptr<CDcmElement>(element));
    }
}

CDcmElement* CDcmElementSet::AddKnown(DWORD tag)
{
    const CDcmEntry* entry = CDcmRegistry::Global().LookUpTag(tag);
    return entry != nullptr ? AddOfEntry(*this, tag, *entry) : nullptr;
}

CDcmElement* CDcmElementSet::AddKnown(const CString& group, const CString& element)
{
    return group.IsEmpty() || element.IsEmpty() ? nullptr : AddKnown(TagOfTexts(group, element));
}

CDcmElement* CDcmElementSet::Insert(const CString& group, const CString& element, const CString& vr, const CString& vm)
{
    int groupNumber = 0;
    int elementNumber = 0;
    if (group.IsEmpty() || element.IsEmpty() || vr.IsEmpty() || vm.IsEmpty() || !ScanHexNumber(group, groupNumber) ||
        !ScanHexNumber(element, elementNumber))
    {
        return nullptr;
    }
    CDcmRegistry& registry = CDcmRegistry::Global();
    if (registry.LookUpTag(groupNumber, elementNumber) != nullptr)
    {
        return nullptr;
    }
    const CDcmEntry* entry =
        registry.AddSharedPrivateEntry(groupNumber, elementNumber, vr, LeadingNumber(vm.CText(), 0));
    const DWORD tag = Tag::Make(groupNumber, elementNumber);
    // No look-up finds odd groups among 50xx and 60xx, which it takes for repeating ones.
    return entry != nullptr && !CEntryTable::IsRepeatingGroup(tag) ? AddOfEntry(*this, tag, *entry) : nullptr;
}

void CDcmElementSet::Remove(const CDcmElement* element)
{
    if (element != nullptr && Elements().Unlink(element))
    {
        delete element;
    }
}

void CDcmElementSet::Remove(DWORD tag)
{
    Remove(Find(tag));
}

void CDcmElementSet::Remove(int group, int element)
{
    Remove(Find(group, element));
}

void CDcmElementSet::Remove(const CString& group, const CString& element)
{
    Remove(Find(group, element));
}

void CDcmElementSet::RemoveTagOf(const CDcmElement& sameTag)
{
    Remove(Find(sameTag));
}

void CDcmElementSet::RemoveTagsOf(const CDcmElementSet& other)
{
    RemoveTags(other, false);
}

void CDcmElementSet::RemoveEveryTagOf(const CDcmElementSet& other)
{
    RemoveTags(other, true);
}

void CDcmElementSet::RemoveTags(const CDcmElementSet& other, bool every)
{
    if (this == &other)
    {
        RemoveAll();
        return;
    }
    if (SharesBodyWith(other))
    {
        // Each element names its own tag, so all go; the other handle keeps the shared body, empty.
        Elements().Clear();
        return;
    }
    std::unordered_map<DWORD, int, STagHash> toRemove;
    for (const CObject* object : other.Body().list)
    {
        ++toRemove[ElementOf(object).Tag()];
    }
    CObjectList kept;
    CObjectList removed;
    kept.Reserve(GetCount());
    for (CObject* object : Body().list)
    {
        const auto found = toRemove.find(ElementOf(object).Tag());
        const bool remove = found != toRemove.end() && (every || found->second-- > 0);
        (remove ? removed : kept).Add(object);
    }
    if (!removed.IsEmpty())
    {
        Elements().SwapList(kept);
        for (const CObject* object : removed)
        {
            delete object;
        }
    }
}

void CDcmElementSet::RemoveAll()
{
    ReplaceBody(std::make_unique<CElementBody>());
    ForgetDeclared();
}

void CDcmElementSet::DestroyContents()
{
    ForgetDeclared();
    ElementsAsIs().Clear();
    ElementsAsIs().ForgetShape();
}

void CDcmElementSet::ForgetAll()
{
    CObjectList borrowed;
    Body().references.SetOne();
    Elements().SwapList(borrowed);
}

void CDcmElementSet::EmptyValues()
{
    ElementsAsIs().EmptyValues();
}

void CDcmElementSet::EmptyValue(int group, int element)
{
    if (CDcmElement* found = Find(group, element))
    {
        found->EmptyValue();
    }
}

void CDcmElementSet::Sort()
{
    Elements().Sort();
}

bool CDcmElementSet::operator==(const CDcmElementSet& other) const
{
    return ElementsAsIs().IsEqual(other.ElementsAsIs());
}

void CDcmElementSet::Dump(CDumpContext& context) const
{
    context << "[m_list=" << static_cast<const void*>(&Body()) << "][cnt=" << GetCount() << "]\n";
    for (const CObject* object : Body().list)
    {
        ElementOf(object).Dump(context);
    }
}
