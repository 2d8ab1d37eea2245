/// What a check of an object finds.
#pragma once

#include "object/ValueRules.h"

/// One place where an object does not follow the standard.
struct SFinding
{
    SValueFault::ESeverity severity;
    CString where; ///< The path of an element, or "file" for the file as a whole.
    CString what;
};

/// Findings in the order in which they were made.
class CFindings
{
public:
    /// The standard does not allow it.
    void Error(const CString& where, const CString& what)
    {
        m_all.push_back({SValueFault::ESeverity::Error, where, what});
    }
    /// Readers accept it, or it is right under a condition that was not checked.
    void Warning(const CString& where, const CString& what)
    {
        m_all.push_back({SValueFault::ESeverity::Warning, where, what});
    }
    void Add(SValueFault::ESeverity severity, const CString& where, const CString& what)
    {
        m_all.push_back({severity, where, what});
    }

    const std::vector<SFinding>& All() const { return m_all; }
    int Count(SValueFault::ESeverity severity) const;

private:
    std::vector<SFinding> m_all;
};

/// The path of an element as findings show it: keyword and tag of the last step.
CString ShownPath(const Varnotix::CElementPath& path);

/// As above for an element of the object itself.
CString ShownTag(DWORD tag);
