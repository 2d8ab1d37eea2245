#include "Varnotix/codec/ClassicEncoder.h"

#include "Varnotix/codec/ElementEncoder.h"
#include "Varnotix/registry/DcmRegistry.h"

#include <vector>

using namespace Varnotix;

namespace
{

constexpr int kGroupLength = 0x0000;

/// Sorts a set of encoded elements, removes the group length elements and, where wanted, makes one for a group that
/// holds the encoded sizes of the group's elements.
/// @param every whether all group lengths of a group are removed, and not only the first one.
template <class WANTED>
void RemakeGroupLengths(CDcmElementSet& set, int syntax, int metaSyntax, bool every, const WANTED& wanted)
{
    struct SGroup
    {
        int group;
        DWORD size;
    };
    set.Sort();
    std::vector<SGroup> groups;
    CDcmElementSet oldLengths;
    for (int i = 0; i < set.GetCount(); ++i)
    {
        const CDcmElement& element = *set.GetAt(i);
        const bool isFirst = groups.empty() || groups.back().group != element.Group();
        if (isFirst)
        {
            groups.push_back({element.Group(), 0});
        }
        if ((isFirst || every) && element.Element() == kGroupLength)
        {
            oldLengths.Add(new CDcmElement(element));
        }
        else
        {
            groups.back().size += element.EncodedSize();
        }
    }
    if (!oldLengths.IsEmpty())
    {
        set.RemoveTagsOf(oldLengths);
    }
    for (const SGroup& group : groups)
    {
        if (group.size == 0 || !wanted(group.group))
        {
            continue;
        }
        CDcmRegistry::Global().AddSharedPrivateEntry(group.group, kGroupLength, "UL", 1);
        auto length = std::make_unique<CDcmElement>(group.group, kGroupLength);
        length->AddInteger(group.size);
        length->SetSyntax(group.group == Tag::kMetaGroup ? metaSyntax : syntax);
        length->Encode();
        set.Add(length.release());
    }
    set.Sort();
}

/// Encodes an element and all that is nested in it, the deepest first, so that each is encoded once.
void EncodeTree(CDcmElement& element, int syntax, bool groupLengths)
{
    element.SetSyntax(syntax);
    CDcmElementSet* items = element.Items();
    if (items == nullptr)
    {
        element.Encode();
        return;
    }
    for (int i = 0; i < items->GetCount(); ++i)
    {
        EncodeTree(*items->GetAt(i), syntax, groupLengths);
    }
    RemakeGroupLengths(*items, syntax, syntax, false, [groupLengths](int) { return groupLengths; });
    CElementEncoder::PrepareSequence(element);
}

} // namespace

std::uint64_t CClassicEncoder::Prepare(CDcmElementSet& set) const
{
    for (int i = 0; i < set.GetCount(); ++i)
    {
        CDcmElement& element = *set.GetAt(i);
        const int syntax = element.HasGroup(Tag::kMetaGroup) ? SYNTAX_EXPLICIT_LITTLE : m_syntax;
        EncodeTree(element, syntax, m_groupLengths);
    }
    // A second (0002,0000) that stayed would say where a reader takes the meta information to end.
    RemakeGroupLengths(set, m_syntax, SYNTAX_EXPLICIT_LITTLE, true,
                       [this](int group) { return m_groupLengths || group == Tag::kMetaGroup; });
    std::uint64_t total = 0;
    for (int i = 0; i < set.GetCount(); ++i)
    {
        total += set.GetAt(i)->EncodedSize();
    }
    return total;
}

void CClassicEncoder::Write(const CDcmElementSet& set, COutputBuffer& out)
{
    for (int i = 0; i < set.GetCount(); ++i)
    {
        CElementEncoder::Write(*set.GetAt(i), out);
    }
}
