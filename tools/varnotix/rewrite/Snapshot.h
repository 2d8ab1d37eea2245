/// A copy of an element set's values for a later comparison.
#pragma once

#include "Varnotix/Varnotix.h"

#include <utility>
#include <vector>

/// One element, with its items. Values share the bytes of the element that they were taken from.
struct SSnapshot
{
    DWORD tag = 0;
    int item = 0; ///< Number of the item that it belongs to; 0 where items are gathered.
    int vr = 0;
    const char* letters = ""; ///< Of the VR in an explicit stream.
    CSharedBytes raw;
    const CDcmFrameList* frames = nullptr; ///< The element's own; it must outlive the snapshot.
    int itemCount = 0;
    std::vector<SSnapshot> items; ///< The elements of all items in one list.

    std::pair<int, DWORD> Place() const { return {item, tag}; }
    bool IsGroupLength() const { return Varnotix::Tag::IsGroupLength(tag); }
    bool IsPrivate() const { return Varnotix::Tag::IsPrivate(tag); }
};

/// The elements of an object in the order in which a write by its stream rules puts them: sorted by tag at every level,
/// equal tags as they are; by the standard rules item after item.
///
/// Taken before a write, it keeps what the write drops from the object.
std::vector<SSnapshot> TakeSnapshot(const CDcmIOD& object);
