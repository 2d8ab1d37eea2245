/// Identifying attributes of an object.
#pragma once

#include "console/Report.h"

#include <set>
#include <vector>

/// True for the 32 attributes that anonymisation replaces.
bool IsIdentifying(DWORD tag);

/// What anonymisation does not reach.
struct SUncovered
{
    std::vector<CString> nested; ///< Paths of identifying attributes in sequence items that hold a value.
    std::set<int> privateGroups; ///< Odd groups, at every depth.
    bool isBurnedIn = false;     ///< Burned In Annotation is YES.
};

SUncovered FindUncovered(const CDcmElementSet& store);

/// Reports what anonymisation did not reach in an object that is to be written.
/// @param deep sequence items were anonymised too.
void ReportUncovered(const CDcmElementSet& written, bool deep, const CString& name, const CReport& report);

/// Writes the text into the identifying attributes at every depth, or removes them for an empty text.
void AnonymizeEveryDepth(CDcmElementSet& store, const CString& text);

/// Removes every element of odd groups, at every depth.
void RemovePrivateGroups(CDcmElementSet& store);

/// Patient Identity Removed and the method (PS3.3 C.7.1.1).
void SetIdentityRemoved(CDcmElementSet& store);

/// The path of an identifying attribute that holds another value than the text; empty when there is none.
CString FindIdentity(const CDcmElementSet& set, const CString& text, bool inItems);
