/// The body behind element sets: the elements, a way to find them by tag, and the shape that a module gave it.
#pragma once

#include "Varnotix/element/DcmElement.h"
#include "Varnotix/element/DcmElementSet.h"

#include <memory>
#include <unordered_map>
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

/// Elements in list order, found by tag.
///
/// Streams and modules fill sets in tag order nearly always, and then a binary search over the list itself answers.
/// A set that is out of order gets an index of the first element of each tag once somebody searches it.
class CElementBody : public CDcmListBody
{
public:
    CDcmElement* At(int index) const { return static_cast<CDcmElement*>(list.At(index)); }

    /// The first element of the tag in list order, or null.
    CDcmElement* Find(DWORD tag) const;

    /// Appends an element and takes ownership.
    void Append(CDcmElement* element);

    /// Unlinks the element from the list; the caller then owns it. False when it is not in the list.
    bool Unlink(const CDcmElement* element);

    /// Replaces the whole list. Elements that were in it and are not any more belong to the caller.
    void SetList(const std::vector<CObject*>& elements);

    /// Destroys the elements; the shape stays.
    void Clear();

    /// Stable, ascending by tag.
    void Sort();

    /// What a module or sequence class declared for this body.
    struct SShape
    {
        struct SBound
        {
            DWORD tag;
            CDcmElementSet member; // Shares the member sequence's body.
        };
        std::vector<DWORD> declared;
        std::vector<std::unique_ptr<SBound>> bound;
    };

    /// The shape; made on first use.
    SShape& Shape();

    /// Null for a body that no module or sequence class shaped.
    SShape* ShapeOrNull() const { return m_shape.get(); }

    /// Moves the items of each SQ element with a bound member into that member's body and shares it, after the
    /// elements were replaced.
    /// @param restore also adds an empty element for each declared or bound tag that is missing.
    void Rebind(bool restore);

private:
    int IndexOf(const CDcmElement* element) const;
    int LowerBound(DWORD tag) const;
    void ListChanged();

    bool m_sorted = true;
    mutable std::unique_ptr<std::unordered_map<DWORD, CDcmElement*>> m_firstOfTag;
    std::unique_ptr<SShape> m_shape;
};
