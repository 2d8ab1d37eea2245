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

/// How a set is prepared.
struct SPreparation
{
    int syntax;
    bool groupLengths; // Every group gets a group length; otherwise only the meta information of the object itself.
    bool isItems;

    bool IsMeta(int group) const { return !isItems && group == Tag::kMetaGroup; }
    int SyntaxOf(int group) const { return IsMeta(group) ? static_cast<int>(SYNTAX_EXPLICIT_LITTLE) : syntax; }
};

/// A new group length.
/// @param size the encoded size of the group's elements.
std::unique_ptr<CDcmElement> MakeGroupLength(int group, DWORD size, int syntax)
{
    CDcmRegistry& registry = CDcmRegistry::Global();
    const CDcmEntry* learned = registry.AddSharedPrivateEntry(group, kGroupLength, "UL", 1);
    const CDcmEntry* entry = registry.LookUpTag(group, kGroupLength);
    if (entry == nullptr)
    {
        entry = learned; // Another thread may have emptied the dictionary meanwhile.
    }
    const int vr = entry != nullptr ? static_cast<int>(entry->vr) : static_cast<int>(VR_UNKNOWN);
    auto length = std::make_unique<CDcmElement>(group, kGroupLength, vr, entry);
    length->AddInteger(size);
    length->SetSyntax(syntax);
    length->Encode();
    return length;
}

using Lengths = std::vector<std::unique_ptr<CDcmElement>>;

/// Puts each new group length in the place of the old one.
/// @return false, and nothing changed, where they are not those of the same groups, or other elements have their tags.
bool ReplaceInPlace(CElementBody& body, const std::vector<int>& old, Lengths& made)
{
    const auto isPlaceOf = [&body](int place, const std::unique_ptr<CDcmElement>& length)
    {
        const CDcmElement* next = body.ElementAt(place + 1);
        return body.ElementAt(place)->Tag() == length->Tag() && (next == nullptr || next->Tag() != length->Tag());
    };
    const bool fit = std::equal(old.begin(), old.end(), made.begin(), made.end(), isPlaceOf);
    for (std::size_t i = 0; fit && i < old.size(); ++i)
    {
        made[i] = body.Replace(old[i], std::move(made[i]));
    }
    return fit;
}

/// Removes the old group lengths from a sorted set and puts the new ones into it.
/// @param old their places.
void ReplaceGroupLengths(CElementBody& body, const std::vector<int>& old, Lengths& made)
{
    if (ReplaceInPlace(body, old, made))
    {
        return;
    }
    CObjectList all;
    CObjectList removed;
    all.Reserve(body.list.GetCount() + static_cast<int>(made.size()));
    removed.Reserve(static_cast<int>(old.size()));
    // Nothing fails from here on, so the elements may be in two places for a moment.
    auto next = made.begin();
    auto nextOld = old.begin();
    for (int i = 0; i < body.list.GetCount(); ++i)
    {
        CObject* object = body.list[i];
        for (; next != made.end() && (*next)->Tag() < ElementOf(object).Tag(); ++next)
        {
            all.Add(next->release());
        }
        const bool isOld = nextOld != old.end() && *nextOld == i;
        nextOld += isOld ? 1 : 0;
        (isOld ? removed : all).Add(object);
    }
    for (; next != made.end(); ++next)
    {
        all.Add(next->release());
    }
    body.SwapSorted(all);
    for (const CObject* object : removed)
    {
        delete object;
    }
}

std::uint64_t PrepareSet(CElementBody& body, const SPreparation& preparation);

/// Encodes an element and all that is nested in it, the deepest first, so that each is encoded once.
/// @return the encoded size.
DWORD PrepareTree(CDcmElement& element, int syntax, bool groupLengths)
{
    element.SetSyntax(syntax);
    if (element.Items() == nullptr)
    {
        CElementEncoder::Prepare(element);
    }
    else
    {
        const SPreparation inside{syntax, groupLengths, true};
        CElementEncoder::PrepareSequence(element, PrepareSet(CElementBody::Of(*element.Items()), inside));
    }
    return CElementEncoder::EncodedSize(element);
}

/// Sorts a set and encodes its elements; removes the group lengths and, where wanted, makes one for a group that holds
/// the encoded sizes of the group's elements.
/// @return the encoded size of all elements.
std::uint64_t PrepareSet(CElementBody& body, const SPreparation& preparation)
{
    body.Sort();
    std::uint64_t total = 0;
    std::vector<int> old;
    Lengths made;
    const int count = body.list.GetCount();
    for (int i = 0; i < count;)
    {
        const int first = i;
        const int group = ElementOf(body.list[i]).Group();
        const int syntax = preparation.SyntaxOf(group);
        DWORD size = 0;
        for (; i < count && ElementOf(body.list[i]).Group() == group; ++i)
        {
            CDcmElement& element = ElementOf(body.list[i]);
            const DWORD encoded = PrepareTree(element, syntax, preparation.groupLengths);
            // In items only the first one of a group goes. In the object itself a second (0002,0000) that stayed would
            // say where a reader takes the meta information to end.
            if (element.Element() == kGroupLength && (i == first || !preparation.isItems))
            {
                old.push_back(i);
            }
            else
            {
                size += encoded;
                total += encoded;
            }
        }
        if (size > 0 && (preparation.groupLengths || preparation.IsMeta(group)))
        {
            made.push_back(MakeGroupLength(group, size, syntax));
            made.back()->SetItem(body.selectedItem);
            total += CElementEncoder::EncodedSize(*made.back());
        }
    }
    ReplaceGroupLengths(body, old, made);
    return total;
}

} // namespace

std::uint64_t CClassicEncoder::Prepare(CDcmElementSet& set) const
{
    return PrepareSet(CElementBody::Of(set), {m_syntax, m_groupLengths, false});
}

void CClassicEncoder::Write(const CDcmElementSet& set, COutputBuffer& out)
{
    for (const CObject* object : CElementBody::Of(set).list)
    {
        CElementEncoder::Write(ElementOf(object), out);
    }
}
