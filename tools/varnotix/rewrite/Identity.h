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

/// Reports what anonymisation did not reach in an object that is to be written, also when only errors are shown.
/// @param deep sequence items were anonymised too.
/// @return STATUS_LEFT when there is anything, otherwise STATUS_DONE.
int ReportUncovered(const CDcmElementSet& written, bool deep, const CString& name, const CReport& report);

/// True for VRs of which any text is a value; dates, times, ages and numbers are not.
bool TakesAnyText(const CDcmElement& element);

/// Writes the text into the identifying attributes, or removes them for an empty text. An attribute of a VR of which
/// the text cannot be a value is emptied; by the classic stream rules, it takes the text, too (see
/// CDcmIOD::Anonymize55).
/// @param deep at every depth. By the classic rules a sequence that loses all its attributes goes.
void AnonymizeIdentity(CDcmIOD& object, const CString& text, bool deep);

/// Removes every element of odd groups, at every depth.
void RemovePrivateGroups(CDcmIOD& object);

/// Patient Identity Removed and the method (PS3.3 C.7.1.1).
void SetIdentityRemoved(CDcmElementSet& store);

/// The path of an identifying attribute that holds another value than the text; empty when there is none.
CString FindIdentity(const CDcmElementSet& set, const CString& text, bool inItems);
