/// The common base of modules, sequences and macros.
#pragma once

#include "Varnotix/element/DcmElementSet.h"
#include "Varnotix/modules/AttributeRow.h"

/// A set of attributes: one element set with the library's copy disciplines and its export as text.
///
/// Nothing here reports failure: an operation on a tag that is not there does nothing.
///
/// A macro that is in an item beside other attributes is a part of that item's set (see IncludeIn). Copying,
/// emptying and comparing a part touch its own attributes only; counting, sorting and exporting it take in the whole
/// item.
class VARNOTIX_EXPORT CDcmAttributeSet : public CObject
{
    DECLARE_DYNCREATE(CDcmAttributeSet)

public:
    CDcmAttributeSet();
    CDcmAttributeSet(const CDcmAttributeSet& other);
    ~CDcmAttributeSet() override;

    /// Becomes a deep copy: elements, values and declared tags. Sequences that are bound to member objects stay bound.
    /// Of a set without elements it takes only the declared tags, and keeps its own elements and their values.
    CDcmAttributeSet& operator=(const CDcmAttributeSet& other);

    /// Value copy from the other set: each element here takes the value of the other's element of the same tag. No
    /// element is added or removed; nothing happens when either set is empty.
    CDcmAttributeSet& operator<<(const CDcmAttributeSet& other);
    /// Value copy into the other set.
    CDcmAttributeSet& operator>>(CDcmAttributeSet& other);

    bool operator==(const CDcmAttributeSet& other) const;
    bool operator!=(const CDcmAttributeSet& other) const { return !(*this == other); }

    /// Empties the value of the element with that tag; the element stays.
    void Empty(int group, int element);
    /// As above; null does nothing.
    void Empty(const CDmElement* element);
    void Empty(const CDmElement& element);

    void Sort() { m_elements.Sort(); }
    /// Number of elements at the top level.
    int GetCount() const { return m_elements.GetCount(); }
    /// Number of elements at every depth.
    int GetCountAll() const { return m_elements.GetCountAll(); }
    CDcmElementSet& GetDcmElementSet() { return m_elements; }
    const CDcmElementSet& GetDcmElementSet() const { return m_elements; }

    /// The rows that made the class, in their order: accessors and tags. None for a class without rows.
    virtual std::vector<SAttributeRow> AttributeRows() const;

    /// Appends the set as text: class name, counts, and a line an element.
    void Export(CStringArray& lines) const;
    /// Writes that text to a file. A file that cannot be written is not reported.
    void Export(const CString& path) const;

protected:
    /// Deep copy; what operator= does.
    void CopyByCreate(const CDcmAttributeSet& source);
    /// Shares the other's elements: a change through either object is seen by the other.
    void CopyByReference(CDcmAttributeSet& source);
    /// Value copy of the tags that both hold.
    void CopyByValue(const CDcmAttributeSet& source);
    /// Empties the value of every element.
    void EmptyAll();
    /// Removes all elements and forgets the declared tags.
    void DestroySet();

    /// Shows the elements of another set from then on, which has declared this set's tags: what is written through
    /// either is seen by the other. The values that this set held are lost. For sets without sequences of their own.
    void IncludeIn(CDcmAttributeSet& whole);

private:
    void PartInto(CDcmElementSet& part) const;
    void TakeDeclared(const CDcmElementSet& source);

    CDcmElementSet m_elements;
    bool m_isPart = false;
};
