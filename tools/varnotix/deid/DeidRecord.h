/// The record of what was done to an object, without its values.
#pragma once

#include "Varnotix/Varnotix.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

/// What was done to an attribute.
enum class EDeidDone
{
    Removed,
    Emptied,
    Replaced, ///< By a dummy value, or the patient's new identity.
    NewUid,
    Shifted, ///< Dates and times.
    Cleaned,
    KeptByOption,
    Kept, ///< The profile does not name it.
    Count
};

/// Counts what was done, by attribute. Attributes in all items of a sequence are one.
class CDeidRecord
{
public:
    void Add(EDeidDone done, const Varnotix::CElementPath& path);

    /// How often a thing was done.
    int CountOf(EDeidDone done) const;

    /// The attributes to which it was done, and how often: "RequestAttributesSequence.ScheduledProcedureStepID".
    std::vector<std::pair<CString, int>> ListOf(EDeidDone done) const;

private:
    std::map<std::pair<EDeidDone, std::vector<DWORD>>, int> m_counts;
};
