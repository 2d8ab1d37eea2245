#include "Varnotix/codec/ClassicEncoder.h"

#include "Varnotix/codec/ElementEncoder.h"
#include "Varnotix/element/ElementBody.h"
#include "Varnotix/registry/DcmRegistry.h"

#include <algorithm>
#include <memory>
#include <vector>

using namespace Varnotix;

namespace
{

constexpr int kGroupLength = 0x0000;

/// A group of a sorted set, with the encoded size of its elements.
struct SGroup
{
    int group;
    DWORD size;
};

/// Makes the group length of each group that wants one.
template <class WANTED>
void MakeGroupLengths(const std::vector<SGroup>& groups, int syntax, int metaSyntax, const WANTED& wanted,
                      std::vector<std::unique_ptr<CDcmElement>>& made)
{
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
        made.push_back(std::move(length));
    }
}

/// Sorts a set of encoded elements, removes the group length elements and, where wanted, makes one for a group that
/// holds the encoded sizes of the group's elements.
/// @param every whether all group lengths of a group are removed, and not only the first one.
/// @return the encoded size of all elements.
template <class WANTED>
std::uint64_t RemakeGroupLengths(CElementBody& body, int syntax, int metaSyntax, bool every, const WANTED& wanted)
{
    body.Sort();
    std::vector<SGroup> groups;
    std::vector<bool> isOld;
    std::uint64_t total = 0;
    int group = -1;
    for (int i = 0; i < body.list.GetCount(); ++i)
    {
        const CDcmElement& element = ElementOf(body.list[i]);
        const bool isFirst = group != element.Group();
        if (isFirst)
        {
            group = element.Group();
            groups.push_back({group, 0});
        }
        if ((isFirst || every) && element.Element() == kGroupLength)
        {
            isOld.resize(static_cast<std::size_t>(body.list.GetCount()));
            isOld[static_cast<std::size_t>(i)] = true;
        }
        else
        {
            const DWORD size = CElementEncoder::EncodedSize(element);
            groups.back().size += size;
            total += size;
        }
    }
    std::vector<std::unique_ptr<CDcmElement>> made;
    MakeGroupLengths(groups, syntax, metaSyntax, wanted, made);
    if (isOld.empty() && made.empty())
    {
        return total;
    }
    const auto oldCount = static_cast<int>(std::count(isOld.begin(), isOld.end(), true));
    CObArray all;
    CObArray old;
    all.SetSize(body.list.GetCount() + static_cast<int>(made.size()) - oldCount);
    old.Reserve(oldCount);
    CObject** place = all.GetData();
    // Nothing fails from here on, so the elements may be in two places for a moment.
    auto next = made.begin();
    const auto addLength = [&]
    {
        CDcmElement& length = **next;
        length.SetItem(body.selectedItem);
        total += CElementEncoder::EncodedSize(length);
        *place++ = (next++)->release();
    };
    for (int i = 0; i < body.list.GetCount(); ++i)
    {
        CObject* object = body.list[i];
        while (next != made.end() && (*next)->Tag() < ElementOf(object).Tag())
        {
            addLength();
        }
        if (oldCount > 0 && isOld[static_cast<std::size_t>(i)])
        {
            old.Add(object);
        }
        else
        {
            *place++ = object;
        }
    }
    while (next != made.end())
    {
        addLength();
    }
    body.SwapSorted(all);
    for (const CObject* object : old)
    {
        delete object;
    }
    return total;
}

/// Encodes an element and all that is nested in it, the deepest first, so that each is encoded once.
void EncodeTree(CDcmElement& element, int syntax, bool groupLengths)
{
    element.SetSyntax(syntax);
    if (element.Items() == nullptr)
    {
        CElementEncoder::Prepare(element);
        return;
    }
    CElementBody& items = CElementBody::Of(*element.Items());
    for (CObject* item : items.list)
    {
        EncodeTree(ElementOf(item), syntax, groupLengths);
    }
    const std::uint64_t size =
        RemakeGroupLengths(items, syntax, syntax, false, [groupLengths](int) { return groupLengths; });
    CElementEncoder::PrepareSequence(element, size);
}

} // namespace

std::uint64_t CClassicEncoder::Prepare(CDcmElementSet& set) const
{
    CElementBody& body = CElementBody::Of(set);
    for (CObject* object : body.list)
    {
        CDcmElement& element = ElementOf(object);
        const int syntax = element.HasGroup(Tag::kMetaGroup) ? SYNTAX_EXPLICIT_LITTLE : m_syntax;
        EncodeTree(element, syntax, m_groupLengths);
    }
    // A second (0002,0000) that stayed would say where a reader takes the meta information to end.
    return RemakeGroupLengths(body, m_syntax, SYNTAX_EXPLICIT_LITTLE, true,
                              [this](int group) { return m_groupLengths || group == Tag::kMetaGroup; });
}

void CClassicEncoder::Write(const CDcmElementSet& set, COutputBuffer& out)
{
    for (const CObject* object : CElementBody::Of(set).list)
    {
        CElementEncoder::Write(ElementOf(object), out);
    }
}
