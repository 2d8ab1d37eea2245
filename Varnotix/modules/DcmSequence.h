/// The base of all sequence and macro classes.
#pragma once

#include "Varnotix/modules/DcmAttributeSet.h"

/// Reserved for the sequence class's own later use.
class VARNOTIX_EXPORT CSequencePrivate : public CObject
{
    DECLARE_DYNAMIC(CSequencePrivate)
};

/// The item of a sequence that a module contains: attributes with fixed tags and typed accessors.
///
/// A module's member sequence shares its elements with the module's SQ element: what is written through one is seen
/// through the other, also after the module was read, copied or assigned. The elements of all items of a sequence are
/// gathered in one set. After a read by the standard stream rules an accessor shows the first item, and TakeItem fills
/// an object of its own from any other; after a read by the classic ones it shows the first element of its tag.
class VARNOTIX_EXPORT CDcmSequence : public CDcmAttributeSet
{
    DECLARE_DYNCREATE(CDcmSequence)

public:
    CDcmSequence();
    CDcmSequence(const CDcmSequence& other);
    ~CDcmSequence() override;

    /// Deep copy of elements, values and declared tags.
    CDcmSequence& operator=(const CDcmSequence& other);

    /// Takes the values of the tags that both sequences hold.
    CDcmSequence& operator<<(const CDcmSequence& other);
    /// Gives its values to the tags that both sequences hold.
    CDcmSequence& operator>>(CDcmSequence& other);
    bool operator==(const CDcmSequence& other) const { return CDcmAttributeSet::operator==(other); }
    bool operator!=(const CDcmSequence& other) const { return !(*this == other); }

    /// Empties every value; elements and declared tags stay.
    void EmptySequence();

    /// Takes the values of one item of a sequence, and empties those that the item lacks. For an object of its own: the
    /// member of a module keeps to the first item, and nothing happens for the very set that this sequence shows.
    /// @param items the items of a sequence element (CDcmElement::Items).
    /// @param item counted from 1; any other number than those of items gives no values.
    void TakeItem(const CDcmElementSet& items, int item);

protected:
    CSequencePrivate& SequencePrivate() { return m_private; }

    /// Declares the sequence's tags, for classes that declare them in one place for reuse. Nothing here.
    virtual void InitializeSequence();
    /// Takes the values of another sequence: operator<<.
    virtual void CopySequence(CDcmSequence& other);
    /// Removes all elements and forgets the declared tags.
    virtual void DestroySequence();

private:
    CSequencePrivate m_private;
};
