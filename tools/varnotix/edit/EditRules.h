/// Edits that would leave an object which does not fit together.
#pragma once

#include "Varnotix/Varnotix.h"

/// Why an attribute must not be edited.
struct SEditReason
{
    CString text;        ///< Empty when it may be.
    bool isFinal = true; ///< Not even when the user insists.
};

/// @param set the object's elements, or those of a sequence.
/// @param item number of the item in the sequence; 0 for the object itself.
SEditReason ReasonAgainstSetting(const CDcmElementSet& set, int item, DWORD tag);
SEditReason ReasonAgainstDeleting(const CDcmElementSet& set, int item, DWORD tag);
