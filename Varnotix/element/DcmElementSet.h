/// The container of data elements that every module, sequence and information object holds.
#pragma once

#include "Varnotix/element/DcmElement.h"
#include "Varnotix/element/DcmList.h"

#include <functional>

class CElementBody;
class CElementShape;

/// An ordered list of owned data elements, in insertion order until it is sorted.
///
/// A set is a handle to a counted body, so that one set can share another's elements (CopyByReference) or own copies
/// of them (CopyByValue). Elements of equal tags may follow each other: the items of a sequence are gathered in one
/// set. Searches answer with the first element of a tag in list order; they are not linear in large sets.
///
/// A set also keeps the tags that a module declared, in order of declaration. A body that a module's member sequence
/// shares with an SQ element remembers this shape: replacing its items keeps every declared element in place and every
/// nested sequence bound to its member object.
class VARNOTIX_EXPORT CDcmElementSet : public CDcmList, public CBlockObject
{
    DECLARE_DYNCREATE(CDcmElementSet)

public:
    CDcmElementSet();
    ~CDcmElementSet() override;

    // Counting and access.

    /// GetCount (of CDcmList) plus the counts of all nested item sets, at every depth.
    int GetCountAll() const;
    /// The element at a list position, or null.
    CDcmElement* GetAt(int index) const { return static_cast<CDcmElement*>(Body().At(index)); }
    /// The first element of the tag, or null.
    CDcmElement* Find(DWORD tag) const;
    CDcmElement* Find(int group, int element) const;
    /// As above; a text that is not a hexadecimal number counts as 0.
    CDcmElement* Find(const CString& group, const CString& element) const;
    CDcmElement* Find(const CDcmElement& sameTag) const;
    bool IsEmpty() const { return GetCount() == 0; }
    /// As IsEmpty, without making the elements that a class declares.
    bool HoldsNothing() const { return !BodyAsIs().unfilled && BodyAsIs().list.IsEmpty(); }
    /// True when every element counts as empty (see CDcmElement::IsEmptyValue).
    bool IsEmptyOfValues() const;

    // Adding and removing.

    /// Appends an element and takes ownership; null is ignored. An element of the same tag stays.
    void Add(CDcmElement* element);
    /// Makes room for a number of elements.
    void Reserve(int count) { Body().list.Reserve(count); }
    /// Becomes the set of a class: an empty element for each of the shape's, with its declared tags. What the set held
    /// goes.
    void TakeShape(const CElementShape& shape);
    /// Declares a tag: when no element of it exists, notes the tag as declared and adds an empty element.
    void Declare(const CString& group, const CString& element);
    void DeclareTagsOf(const CDcmElementSet& other);
    /// Takes the other set's declared tags in place of its own; the elements stay as they are.
    void CopyDeclared(const CDcmElementSet& other);
    /// Adds an empty element of a tag that the dictionary knows, in place of an element of that tag.
    /// @return the element; null, and nothing changed, for an empty text or an unknown tag.
    CDcmElement* AddKnown(DWORD tag);
    CDcmElement* AddKnown(const CString& group, const CString& element);
    /// Enters a tag that the dictionary does not know as a private one, with VR and multiplicity, and adds it.
    /// @return the element; null, and nothing changed, when a text is empty or not a number, when the dictionary knows
    ///         the tag, or when its group is even.
    CDcmElement* Insert(const CString& group, const CString& element, const CString& vr, const CString& vm);
    /// Removes and destroys this very element, if it is in the list.
    void Remove(const CDcmElement* element);
    /// Removes and destroys the first element of the tag.
    void Remove(DWORD tag);
    void Remove(int group, int element);
    /// As above; a text that is not a hexadecimal number counts as 0.
    void Remove(const CString& group, const CString& element);
    void RemoveTagOf(const CDcmElement& sameTag);
    /// For each element of the other set, removes the first element of that tag here. The set itself as the argument
    /// empties it.
    void RemoveTagsOf(const CDcmElementSet& other);
    /// As RemoveTagsOf, but removes every element of those tags.
    void RemoveEveryTagOf(const CDcmElementSet& other);
    /// Empties the declared tags and takes a fresh empty body; other handles of the old body keep their elements.
    void RemoveAll();
    /// Destroys the elements in the shared body and forgets the declared tags: every handle of the body sees it empty.
    void DestroyContents();
    /// Unlinks all elements without destroying them, and counts this set as the only one of its body: for a set that
    /// borrowed its elements. Another set that still shares the body must not be used any more.
    void ForgetAll();

    /// @name Items
    /// The set of a sequence holds the elements of all its items, item after item (PS3.5 section 7.5). Each element
    /// knows the number of its item (CDcmElement::Item), counted from 1; the set knows how many items there are, empty
    /// ones included, and how each gives its length. Reads of either stream rules fill this in, and copies carry it.
    /// Elements without an item, such as those that accessors make, count to item 1.
    /// @{

    /// Number of items. A set that was filled without items is one item; an empty one has none.
    int ItemCount() const;
    /// Appends an item and selects it (see SelectItem). Elements that are in the set without an item become item 1
    /// first.
    /// @param undefinedLength whether a write by the standard stream rules gives the item an undefined length.
    void BeginItem(bool undefinedLength = false);
    /// From now on Add gives elements without an item to this one.
    /// @param item 1 to ItemCount(); any other number selects none.
    void SelectItem(int item);
    /// Replaces the list by the elements of an item, in list order. They stay owned by the set. The list stays empty
    /// for a number without an item.
    void GetItem(int item, CObList& elements) const;
    /// The first element of the tag in an item, or null.
    CDcmElement* FindInItem(int item, int group, int element) const;
    /// Whether a write by the standard stream rules gives the item an undefined length. False for a number without an
    /// item.
    bool HasUndefinedLength(int item) const;
    /// Removes and destroys the elements for which the condition is true, which may be all; the number of items stays.
    void RemoveIf(const std::function<bool(const CDcmElement&)>& condition);
    /// Removes an item and destroys its elements; later items move up. False for a number without an item.
    bool RemoveItem(int item);
    /// Whether the set keeps items as a read by the standard stream rules met them: accessors of modules then see the
    /// first item only, where they otherwise see the first element of a tag in any item, and empty elements of items
    /// are copied where others are left out.
    bool KeepsItems() const;
    void SetKeepsItems(bool keep);
    /// Takes over what the other set knows of its items, but for the elements.
    void CopyItemForms(const CDcmElementSet& other);
    /// @}

    // Copying and merging.

    /// Shares the other set's body.
    void CopyByReference(const CDcmElementSet& other);
    /// Becomes a set of copies of the other's elements, with its declared tags, in a fresh body.
    void CopyByValue(const CDcmElementSet& other);
    /// As CopyByValue, but in the body that this set shares with others; bound sequences stay bound.
    void CopyIntoBody(const CDcmElementSet& other);
    /// Replaces the elements by copies of the other's, in the body that this set shares with others. Declared elements
    /// that the other lacks stay in place, empty; bound sequences stay bound.
    void ReplaceItems(const CDcmElementSet& items);
    /// Each element here takes the value of the first element of its tag in the other set, if there is one.
    void UpdateValuesFrom(const CDcmElementSet& other);
    /// As UpdateValuesFrom, with the elements of one item of the other set. Nothing happens when both share a body.
    /// @param item 1 to the other's ItemCount(); any other number gives no values.
    void UpdateValuesFromItem(const CDcmElementSet& other, int item);
    /// Adds copies of the other's elements whose tags are not here, before this set's own elements; the others update
    /// the values here. The body is replaced. Callers sort afterwards. Where both sets keep items (KeepsItems), this
    /// holds for each item by itself, and the items stay in order.
    void Merge(const CDcmElementSet& other);
    /// The given elements, which this set may take over, replace the first elements of their tags, and the set is
    /// sorted: as RemoveTagsOf, Merge and Sort, in one pass over sets in which each tag occurs once.
    void TakeTagsOf(CDcmElementSet& values);
    /// Adds copies of the elements that are not empty to the target; empty items are left out of sequences.
    void CopyNonEmptyInto(CDcmElementSet& target) const;
    /// Empties every element's value; the elements stay.
    void EmptyValues();
    void EmptyValue(int group, int element);

    // Ordering and comparing.

    /// Sorts ascending by group and element; elements of equal tags keep their order.
    void Sort();
    /// Equal when the bodies are shared, or when each element finds an equal one of its own in the other set, in
    /// whatever order.
    bool operator==(const CDcmElementSet& other) const;
    bool operator!=(const CDcmElementSet& other) const { return !(*this == other); }

    // Declared tags and bound sequences.

    /// The declared tags, two texts a tag: group and element in four upper-case hexadecimal digits each.
    void DeclaredTags(CStringArray& texts) const;
    /// Number of texts in the declared-tag list: two a tag.
    int DeclaredTagTexts() const { return DeclaredCount() * 2; }
    int DeclaredCount() const;
    /// @param index from 0 to DeclaredCount() - 1; it is not checked.
    DWORD DeclaredTag(int index) const;
    /// The element of the tag whose group text is at a position of the declared-tag list (0, 2, 4, ...); null for
    /// a position outside the list or a tag that is not in the set.
    CDcmElement* FindDeclared(int position) const;
    /// Adds an SQ element whose items are the member set's elements from now on: what is written through either is
    /// seen by the other, also after a copy or an assignment, or when this set's elements are replaced. A member whose
    /// own set takes a fresh body (RemoveAll, CopyByValue, Merge) or shares another's is bound no more. The element of
    /// a tag that is not an SQ is added unbound.
    void BindSequence(const CString& group, const CString& element, CDcmElementSet& member);
    /// As BindSequence, for the shape's next sequence.
    void BindNext(CDcmElementSet& member);

    /// Diagnostic text: body identity, count and each element.
    void Dump(CDumpContext& context) const override;

private:
    friend class CElementBlocks;
    friend class CElementBody;

    /// Shares a body.
    explicit CDcmElementSet(CElementBody& body);
    /// Takes over a body.
    explicit CDcmElementSet(std::unique_ptr<CElementBody> body);

    CElementBody& Elements() const;
    CElementBody& ElementsAsIs() const;
    void Declare(DWORD tag);
    void ForgetDeclared();
    void RemoveTags(const CDcmElementSet& other, bool every);
    /// Takes a fresh body, in which the members of this set's own body stay bound.
    void ReplaceBody(std::unique_ptr<CElementBody> body);

    const CElementShape* m_classShape = nullptr; // Tells the declared tags as long as they are those of the class.
    CDWordArray m_declared;
};
