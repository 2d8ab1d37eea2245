/// What a module or sequence class declares: the tags of its elements, the same for every object of the class.
#pragma once

#include "Varnotix/registry/DcmEntry.h"

#include <vector>

/// The tags that a class declares, in order of declaration, and the elements that these make, in tag order.
///
/// An object's set refers to the shape of its class, which must outlive it, and creates the elements on first access:
/// most sequences of most modules are never accessed.
class VARNOTIX_EXPORT CElementShape
{
public:
    /// What the element of a tag begins as.
    struct SElement
    {
        DWORD tag;
        int vr;
        const CDcmEntry* entry;
    };

    /// Declares an attribute, unless an element of its tag is there. The texts are hexadecimal.
    void Declare(const CString& group, const CString& element);
    void Declare(DWORD tag);
    /// Adds the SQ element of a contained sequence, which is not among the declared tags.
    void AddSequence(const CString& group, const CString& element);

    /// In order of declaration.
    const std::vector<DWORD>& Declared() const { return m_declared; }
    /// The tags of contained sequences in the order in which they were added.
    const std::vector<DWORD>& Sequences() const { return m_sequences; }
    /// All elements, in tag order.
    const std::vector<SElement>& Elements() const { return m_elements; }
    /// True when each element counts as empty as long as it is given no value (see CDcmElement::IsEmptyValue).
    bool BeginsEmpty() const { return m_beginsEmpty; }
    /// False when the dictionary has learned or forgotten a private tag of the shape since it was made: objects that
    /// are made from then on need another shape.
    bool IsCurrent() const;

private:
    std::vector<SElement>::const_iterator Place(DWORD tag) const;
    void AddElement(DWORD tag);

    std::vector<DWORD> m_declared;
    std::vector<DWORD> m_sequences;
    std::vector<SElement> m_elements;
    bool m_beginsEmpty = true;
    bool m_hasPrivateTags = false;
};
