/// The body of element sets: the elements, a way to find them by tag, and the shape that a module gave it.
#pragma once

#include "Varnotix/element/DcmElement.h"
#include "Varnotix/element/DcmElementSet.h"
#include "Varnotix/element/ElementShape.h"
#include "Varnotix/element/ItemForms.h"
#include "Varnotix/registry/TagHash.h"

#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

/// An entry of a body's list as what it is.
inline const CDcmElement& ElementOf(const CObject* object)
{
    return static_cast<const CDcmElement&>(*object);
}

inline CDcmElement& ElementOf(CObject* object)
{
    return static_cast<CDcmElement&>(*object);
}

/// The item that an element counts to.
inline int ItemOf(const CDcmElement& element)
{
    return element.Item() > 0 ? element.Item() : 1;
}

class CElementBlocks;
class CElementBody;

/// A movable counted reference to a body.
class CBodyHandle
{
public:
    explicit CBodyHandle(CElementBody& body);
    CBodyHandle(CBodyHandle&& other) noexcept : m_body(std::exchange(other.m_body, nullptr)) {}
    CBodyHandle& operator=(CBodyHandle&& other) noexcept
    {
        std::swap(m_body, other.m_body);
        return *this;
    }
    ~CBodyHandle();
    CElementBody& operator*() const { return *m_body; }

private:
    CElementBody* m_body;
};

/// Elements in list order, found by tag.
///
/// Streams and modules fill sets in tag order nearly always, and then a binary search over the list itself answers.
/// A set that is out of order gets an index of the first element of each tag on its first search.
///
/// A body with a shape is unfilled at first: elements of the shape without a value are left out of its list.
/// They are created on first access; most are never accessed.
class CElementBody : public CDcmListBody, public CBlockObject
{
public:
    using CDcmListBody::list;
    using CDcmListBody::references;
    using CDcmListBody::unfilled;

    ~CElementBody() override { DestroyElements(); }

    /// The body that a set shows, with all its elements in the list.
    static CElementBody& Of(const CDcmElementSet& set) { return set.Elements(); }

    CDcmElement* ElementAt(int index) const { return static_cast<CDcmElement*>(At(index)); }

    /// The first element of the tag in list order, or null.
    CDcmElement* Find(DWORD tag) const;

    /// Appends an element and takes it over, also when memory runs out.
    CDcmElement& AddElement(std::unique_ptr<CDcmElement> element);

    /// What a decoder knows of an element before it reads the value.
    struct SHeader
    {
        DWORD tag;
        int vr; ///< At most VR_UNKNOWN.
        Varnotix::ELaterVr laterVr;
        const CDcmEntry* entry;
    };
    /// Appends an element that a decoder has read, in a block. For Pixel Data, the bytes are a frame.
    CDcmElement& AddRead(CElementBlocks& blocks, const SHeader& header, CSharedBytes&& value);

    /// Puts an element of the same tag in the place of the one at an index, which the caller owns then.
    std::unique_ptr<CDcmElement> Replace(int index, std::unique_ptr<CDcmElement> element) noexcept;

    /// Unlinks the element from the list; the caller then owns it. False when it is not in the list.
    bool Unlink(const CDcmElement* element);

    /// Exchanges the whole list. Elements that were in it and are not any more belong to the caller. Never fails.
    void SwapList(CObjectList& elements) noexcept;
    /// As above, for a list that is in tag order.
    void SwapSorted(CObjectList& elements) noexcept;

    /// Adds an empty element for each tag of the shape that is not in the list.
    void Fill() override;

    /// To be called when the list was changed from outside.
    void ListChanged();

    /// The items of a sequence's set.
    CItemForms itemForms;
    /// The item that elements without one join when they are added; 0 for none.
    int selectedItem = 0;
    /// Set by reads of the standard stream rules: accessors see the first item only, and empty elements that were read
    /// are kept.
    bool keepsItems = false;

    /// The first element of the tag in an item; those without an item count to item 1.
    CDcmElement* FindInItem(DWORD tag, int item) const;

    /// The element of the tag that accessors show: of the first item, or the first one of all where items are not kept.
    CDcmElement* FindShown(DWORD tag) const;

    /// Takes over what is known of the other body's items, but for the elements.
    void CopyItemForms(const CElementBody& other);

    /// Destroys the elements and forgets the items; the shape stays.
    void Clear();

    /// Makes the elements without an item an item, where there is none.
    void NumberItems();
    /// Appends an item and selects it; see CDcmElementSet.
    void BeginItem(bool undefinedLength);

    /// Stable, ascending by tag.
    void Sort();

    // Values. What is said of sets in DcmElementSet.h holds for their bodies.

    /// The list, with the elements that were left out of it.
    const CObjectList& WholeList()
    {
        if (unfilled)
        {
            Fill();
        }
        return list;
    }
    /// A list that may lack elements which count as empty.
    const CObjectList& ListOfValues();
    bool IsEmptyOfValues();
    void EmptyValues();
    bool IsEqual(CElementBody& other);
    /// Appends copies of all elements. When memory runs out, the target owns those that were made.
    void CopyElementsInto(CDcmListBody& target);
    /// Replaces the elements by copies of the other's; bound sequences stay bound.
    void CopyFrom(CElementBody& other);
    /// As CopyFrom; declared elements that the other lacks stay in place, empty.
    void ReplaceItems(CElementBody& items);

    // What a module or sequence class declared for this body.

    /// Takes the shape of a class for an empty body; its elements are created on first access.
    void TakeShape(const CElementShape& shape);
    /// A shape of this body only, which can be added to.
    CElementShape& OwnShape();
    bool IsShaped() const { return m_shape != nullptr; }
    void ForgetShape();
    /// True when each element that is left out of the list would count as empty.
    bool HoldsAllValues() const;
    /// True when both lists are unfilled and of one shape.
    bool IsUnfilledLike(const CElementBody& other) const;
    /// The elements of an unfilled body, in the list or not, take the values of the other's elements of their tags.
    void TakeValues(const CElementBody& other);
    /// Members that no element shows take the values of the other's member in their place, or become empty without
    /// one: an accessor must not show what was there before a copy.
    void CopyUnshownMembers(const CElementBody& other);
    /// Takes over the bound members of a body that this one replaces, when no other handle shares that body.
    void TakeBindings(CElementBody& replaced) noexcept;

    /// Makes the SQ element of the shape's next sequence show a member's elements.
    void BindNext(CElementBody& member);
    /// The members that SQ elements show, in the order of their binding.
    const std::vector<CBodyHandle>& Members() const { return m_members; }
    /// Moves the items of each SQ element with a bound member into that member's body and shares it, after the
    /// elements were replaced.
    /// @param restore also adds an empty element for each tag of the shape that is missing.
    void Rebind(bool restore);

private:
    using CTagIndex = std::unordered_map<DWORD, CDcmElement*, STagHash>;

    /// An empty element of the shape, bound if it is a sequence with a member.
    std::unique_ptr<CDcmElement> MakeElement(const CElementShape::SElement& shape, CElementBlocks& blocks) const;
    template <class MAKE>
    void AddMissing(const MAKE& make);
    /// The element that shows a member, if it is in the list.
    CDcmElement* FindMember(std::size_t member) const { return FindShown(m_shape->Sequences()[member]); }
    CDcmElement* FindFrom(DWORD tag, int& start) const;
    void CopyListInto(CDcmListBody& target) const;
    int IndexOf(const CDcmElement* element) const;
    static CElementBody* TakeItems(CDcmElement& element) noexcept;
    void DestroyElements() noexcept;
    CDcmElement& AddOwner(CElementBlocks& blocks, const SHeader& header, CSharedBytes&& value);
    CDcmElement& Link(std::unique_ptr<CDcmElement>&& added);
    void AddToIndex(CDcmElement& element) noexcept;
    int LowerBound(DWORD tag) const;

    CElementBody* m_next = nullptr; // The next one that waits to be destroyed.
    bool m_sorted = true;
    mutable std::unique_ptr<CTagIndex> m_firstOfTag;
    const CElementShape* m_shape = nullptr;
    std::unique_ptr<CElementShape> m_ownShape;
    std::vector<CBodyHandle> m_members;
};
