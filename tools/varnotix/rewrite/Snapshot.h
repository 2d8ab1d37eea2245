/// A copy of an element set's values for a later comparison.
#pragma once

#include "Varnotix/Varnotix.h"

#include <vector>

/// One element, with its items. Values share the bytes of the element that they were taken from.
struct SSnapshot
{
    DWORD tag = 0;
    int vr = 0;
    CSharedBytes raw;
    const CDcmFrameList* frames = nullptr; ///< The element's own; it must outlive the snapshot.
    std::vector<SSnapshot> items;          ///< As read: the elements of all items in one list.

    bool IsGroupLength() const { return Varnotix::Tag::IsGroupLength(tag); }
    bool IsPrivate() const { return Varnotix::Tag::IsPrivate(tag); }
};

/// The elements of a set in the order in which a write puts them: sorted by tag at every level, equal tags as they are.
///
/// Taken before a write, it keeps what the write drops from the set. Elements must have raw bytes, as after a read.
std::vector<SSnapshot> TakeSnapshot(const CDcmElementSet& set);
