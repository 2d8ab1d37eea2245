// What a module or sequence class declared for a body: its shape, and the members that show its sequences.

#include "Varnotix/element/ElementBlocks.h"
#include "Varnotix/element/ElementBody.h"

#include <algorithm>

using namespace Varnotix;

void CElementBody::TakeShape(const CElementShape& shape)
{
    m_shape = &shape;
    m_members.reserve(shape.Sequences().size());
    unfilled = true;
}

CElementShape& CElementBody::OwnShape()
{
    if (!m_ownShape)
    {
        m_ownShape = m_shape != nullptr ? std::make_unique<CElementShape>(*m_shape) : std::make_unique<CElementShape>();
        m_shape = m_ownShape.get();
    }
    return *m_ownShape;
}

void CElementBody::ForgetShape()
{
    m_members.clear();
    m_shape = nullptr;
    m_ownShape.reset();
}

bool CElementBody::HoldsAllValues() const
{
    if (!unfilled)
    {
        return true;
    }
    for (std::size_t i = 0; i < m_members.size(); ++i)
    {
        if (FindMember(i) == nullptr && !(*m_members[i]).IsEmptyOfValues())
        {
            return false;
        }
    }
    return m_shape->BeginsEmpty();
}

bool CElementBody::IsUnfilledLike(const CElementBody& other) const
{
    return unfilled && other.unfilled && m_shape == other.m_shape && m_members.size() == other.m_members.size();
}

void CElementBody::BindNext(CElementBody& member)
{
    m_members.emplace_back(member);
}

std::unique_ptr<CDcmElement> CElementBody::MakeElement(const CElementShape::SElement& shape,
                                                       CElementBlocks& blocks) const
{
    if (shape.vr == VR_SQ)
    {
        const std::vector<DWORD>& tags = m_shape->Sequences();
        const auto place = static_cast<std::size_t>(std::find(tags.begin(), tags.end(), shape.tag) - tags.begin());
        if (place < m_members.size())
        {
            auto items = blocks.Make<CDcmElementSet>(*m_members[place]);
            return blocks.Make<CDcmElement>(shape.tag, shape.entry, std::move(items));
        }
    }
    return blocks.Make<CDcmElement>(Tag::Group(shape.tag), Tag::Element(shape.tag), shape.vr, shape.entry);
}

void CElementBody::Rebind(bool restore)
{
    if (m_shape == nullptr)
    {
        return;
    }
    for (std::size_t i = 0; i < m_members.size(); ++i)
    {
        CDcmElement* sequence = FindMember(i);
        CElementBody& member = *m_members[i];
        if (sequence != nullptr && sequence->Items() != nullptr)
        {
            CDcmElementSet& items = *sequence->Items();
            if (restore)
            {
                member.ReplaceItems(items.ElementsAsIs());
            }
            else
            {
                member.CopyFrom(items.ElementsAsIs());
            }
            if (&items.ElementsAsIs() != &member)
            {
                member.references.Add();
                items.TakeBody(&member);
            }
        }
        else if (restore && sequence == nullptr)
        {
            member.EmptyValues();
        }
    }
    unfilled = unfilled || restore;
}

/// In a sorted list the new elements go to their places; after the items of a read, which keep the stream's order, they
/// go to the end.
/// @param make gives the element for a tag of the shape that is not in the list, or null for none.
template <class MAKE>
void CElementBody::AddMissing(const MAKE& make)
{
    CDcmListBody made; // Owns the new elements until they are in the list.
    CObjectList all;
    all.Reserve(list.GetCount() + static_cast<int>(m_shape->Elements().size()));
    const auto* next = list.begin();
    for (; !m_sorted && next != list.end(); ++next)
    {
        all.Add(*next);
    }
    for (const CElementShape::SElement& element : m_shape->Elements())
    {
        while (next != list.end() && ElementOf(*next).Tag() < element.tag)
        {
            all.Add(*next++);
        }
        const bool isInOrder = m_sorted && !keepsItems;
        if (isInOrder ? next != list.end() && ElementOf(*next).Tag() == element.tag : FindShown(element.tag) != nullptr)
        {
            continue;
        }
        if (std::unique_ptr<CDcmElement> missing = make(element))
        {
            all.Add(missing.get());
            made.Append(std::move(missing));
        }
    }
    if (!made.list.IsEmpty())
    {
        for (; next != list.end(); ++next)
        {
            all.Add(*next);
        }
        SwapList(all);
        made.list.RemoveAll();
    }
}

void CElementBody::Fill()
{
    const int missing = static_cast<int>(m_shape->Elements().size()) - list.GetCount();
    CElementBlocks blocks = CElementBlocks::For<CDcmElement>(missing);
    AddMissing([&](const CElementShape::SElement& element) { return MakeElement(element, blocks); });
    unfilled = false;
}

/// As Find, for tags in ascending order.
/// @param start 0 at first; moves on with the tags.
CDcmElement* CElementBody::FindFrom(DWORD tag, int& start) const
{
    if (!m_sorted)
    {
        return Find(tag);
    }
    int step = 1;
    while (start + step < list.GetCount() && ElementOf(list.begin()[start + step]).Tag() < tag)
    {
        start += step;
        step *= 2;
    }
    const auto* end = list.begin() + std::min(start + step + 1, list.GetCount());
    const auto* found =
        std::lower_bound(list.begin() + std::min(start, list.GetCount()), end, tag,
                         [](const CObject* element, DWORD value) { return ElementOf(element).Tag() < value; });
    start = static_cast<int>(found - list.begin());
    CDcmElement* element = ElementAt(start);
    return element != nullptr && element->Tag() == tag ? element : nullptr;
}

void CElementBody::TakeValues(const CElementBody& other)
{
    for (CObject* object : list)
    {
        if (const CDcmElement* value = other.Find(ElementOf(object).Tag()))
        {
            ElementOf(object) = *value;
        }
    }
    int start = 0;
    CElementBlocks blocks;
    AddMissing(
        [&](const CElementShape::SElement& element)
        {
            std::unique_ptr<CDcmElement> taken;
            if (const CDcmElement* value = other.FindFrom(element.tag, start))
            {
                taken = MakeElement(element, blocks);
                *taken = *value;
            }
            return taken;
        });
}

void CElementBody::CopyUnshownMembers(const CElementBody& other)
{
    for (std::size_t i = 0; i < m_members.size(); ++i)
    {
        if (FindMember(i) != nullptr)
        {
            continue;
        }
        CElementBody& member = *m_members[i];
        if (i < other.m_members.size() && m_shape->Sequences()[i] == other.m_shape->Sequences()[i])
        {
            member.CopyFrom(*other.m_members[i]);
        }
        else
        {
            member.EmptyValues();
        }
    }
}

void CElementBody::TakeBindings(CElementBody& replaced) noexcept
{
    if (replaced.references.IsOne() && !replaced.m_members.empty())
    {
        m_shape = replaced.m_shape;
        m_ownShape.swap(replaced.m_ownShape);
        m_members.swap(replaced.m_members);
    }
}
