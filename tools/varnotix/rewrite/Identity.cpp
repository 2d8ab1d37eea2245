#include "rewrite/Identity.h"

#include "object/Attributes.h"

#include <algorithm>
#include <iterator>

namespace Tag = Varnotix::Tag;

namespace
{

constexpr const char* kMethodText = "Varnotix: 32 attributes, also in items; private groups";

bool IsPrivate(const CDcmElement& element)
{
    return Tag::IsPrivate(element.Tag());
}

void GatherUncovered(const CDcmElementSet& set, const CString& path, SUncovered& found)
{
    for (int i = 0; i < set.GetCount(); ++i)
    {
        const CDcmElement& element = *set.GetAt(i);
        if (IsPrivate(element))
        {
            found.privateGroups.insert(element.Group());
        }
        if (!path.IsEmpty() && IsIdentifying(element.Tag()) && !element.RawBytes().IsEmpty())
        {
            found.nested.push_back(path + TagAndName(element.Tag()));
        }
        if (element.Items() != nullptr)
        {
            GatherUncovered(*element.Items(), path + TagName(element.Tag()) + ">", found);
        }
    }
}

/// Removes all elements that a condition names, in one pass over the set.
template <class CONDITION>
void RemoveWhere(CDcmElementSet& set, const CONDITION& condition)
{
    CDcmElementSet doomed;
    for (int i = 0; i < set.GetCount(); ++i)
    {
        const CDcmElement& element = *set.GetAt(i);
        if (condition(element))
        {
            doomed.Add(new CDcmElement(element.Group(), element.Element()));
        }
    }
    set.RemoveTagsOf(doomed);
}

void RemoveIdentifying(CDcmElementSet& set)
{
    RemoveWhere(set, [](const CDcmElement& element) { return IsIdentifying(element.Tag()); });
}

/// Replaces the value, or empties it where the text cannot be a value of the element's VR.
void ReplaceValue(CDcmElement& element, const CString& text)
{
    if (CDcmElementSet* items = element.Items())
    {
        items->RemoveAll();
        return;
    }
    CDcmElement replaced(element.Group(), element.Element(), element.Vr());
    replaced.SetLaterVr(element.LaterVr());
    if (TakesAnyText(element))
    {
        replaced.AddText(text);
    }
    element = replaced;
}

void ReplaceIdentifying(CDcmElementSet& set, const CString& text)
{
    for (int i = 0; i < set.GetCount(); ++i)
    {
        if (IsIdentifying(set.GetAt(i)->Tag()))
        {
            ReplaceValue(*set.GetAt(i), text);
        }
    }
}

/// Changes a set and the items in it, at every depth.
/// @param dropsEmpty a sequence that loses all its attributes goes too: a read by the classic rules would take the
///        element after an empty sequence for one of its items.
template <class CHANGE>
void AtEveryDepth(CDcmElementSet& set, bool dropsEmpty, const CHANGE& change)
{
    change(set);
    for (int i = set.GetCount() - 1; i >= 0; --i)
    {
        CDcmElement* element = set.GetAt(i);
        CDcmElementSet* items = element->Items();
        if (items == nullptr || items->IsEmpty())
        {
            continue;
        }
        AtEveryDepth(*items, dropsEmpty, change);
        if (dropsEmpty && items->IsEmpty())
        {
            set.Remove(element);
        }
    }
}

} // namespace

bool IsIdentifying(DWORD tag)
{
    static const std::set<DWORD> known(std::begin(Varnotix::kIdentifyingTags), std::end(Varnotix::kIdentifyingTags));
    return known.contains(tag);
}

SUncovered FindUncovered(const CDcmElementSet& store)
{
    SUncovered found;
    GatherUncovered(store, CString(), found);
    found.isBurnedIn = TextOf(store, Tag::kBurnedInAnnotation) == "YES";
    return found;
}

int ReportUncovered(const CDcmElementSet& written, bool deep, const CString& name, const CReport& report)
{
    const SUncovered found = FindUncovered(written);
    std::vector<CString> parts;
    if (!found.nested.empty() && !deep)
    {
        CString part("1 identifying attribute in sequence items");
        if (found.nested.size() > 1)
        {
            part.Format("%d identifying attributes in sequence items", static_cast<int>(found.nested.size()));
        }
        parts.push_back(part);
        for (const CString& path : found.nested)
        {
            report.Detail(name + ": not covered: " + path);
        }
    }
    if (!found.privateGroups.empty())
    {
        CString part("private groups");
        for (const int group : found.privateGroups)
        {
            CString number;
            number.Format(" %04X", static_cast<unsigned>(group));
            part += number;
        }
        parts.push_back(part);
    }
    if (found.isBurnedIn)
    {
        parts.push_back(TagAndName(Tag::kBurnedInAnnotation) + " is YES: its pixels may identify the patient");
    }
    CString text;
    for (const CString& part : parts)
    {
        text += (text.IsEmpty() ? "" : "; ") + part;
    }
    if (text.IsEmpty())
    {
        return STATUS_DONE;
    }
    report.Error(name + ": not covered: " + text);
    return STATUS_LEFT;
}

bool TakesAnyText(const CDcmElement& element)
{
    constexpr int kVrs[] = {VR_AE, VR_CS, VR_LO, VR_LT, VR_PN, VR_SH, VR_ST, VR_UT};
    return std::any_of(std::begin(kVrs), std::end(kVrs), [&](int vr) { return element.HasVr(vr); });
}

void AnonymizeIdentity(CDcmIOD& object, const CString& text, bool deep)
{
    CDcmElementSet& store = object.ElementStore();
    const bool isClassic = object.StreamRules() == STREAM_RULES_CLASSIC;
    const auto change = [&](CDcmElementSet& set)
    {
        if (text.IsEmpty())
        {
            RemoveIdentifying(set);
        }
        else
        {
            ReplaceIdentifying(set, text);
        }
    };
    if (isClassic)
    {
        object.Anonymize55(text);
    }
    if (deep && (!isClassic || text.IsEmpty()))
    {
        AtEveryDepth(store, isClassic, change);
        return;
    }
    if (!isClassic)
    {
        change(store);
    }
    if (!deep)
    {
        return;
    }
    CDcmElementSet replacement;
    for (const DWORD tag : Varnotix::kIdentifyingTags)
    {
        if (CDcmElement* element = replacement.AddKnown(tag))
        {
            element->AddText(text);
        }
    }
    AtEveryDepth(store, true, [&](CDcmElementSet& set) { set.UpdateValuesFrom(replacement); });
}

void RemovePrivateGroups(CDcmIOD& object)
{
    AtEveryDepth(object.ElementStore(), object.StreamRules() == STREAM_RULES_CLASSIC,
                 [](CDcmElementSet& set) { RemoveWhere(set, IsPrivate); });
}

void SetIdentityRemoved(CDcmElementSet& store)
{
    SetText(store, Tag::kPatientIdentityRemoved, "YES", ' ');
    const CString methods = TextOf(store, Tag::kDeidentificationMethod);
    if (methods.Find(kMethodText) < 0)
    {
        const CString all = (methods.IsEmpty() ? CString() : methods + "\\") + kMethodText;
        SetText(store, Tag::kDeidentificationMethod, all.View(), ' ');
    }
}

CString FindIdentity(const CDcmElementSet& set, const CString& text, bool inItems)
{
    CString wanted(text);
    wanted.TrimRight();
    for (int i = 0; i < set.GetCount(); ++i)
    {
        const CDcmElement& element = *set.GetAt(i);
        if (IsIdentifying(element.Tag()))
        {
            CString value{element.RawBytes().Text()};
            value.TrimRight();
            if (!value.IsEmpty() && value != wanted)
            {
                return TagAndName(element.Tag());
            }
        }
        if (inItems && element.Items() != nullptr)
        {
            const CString nested = FindIdentity(*element.Items(), text, true);
            if (!nested.IsEmpty())
            {
                return TagName(element.Tag()) + ">" + nested;
            }
        }
    }
    return CString();
}
