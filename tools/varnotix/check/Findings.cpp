#include "check/Findings.h"

#include "console/Report.h"

#include <algorithm>

int CFindings::Count(SValueFault::ESeverity severity) const
{
    return static_cast<int>(std::count_if(m_all.begin(), m_all.end(),
                                          [severity](const SFinding& one) { return one.severity == severity; }));
}

CString ShownPath(const Varnotix::CElementPath& path)
{
    const DWORD tag = path.Steps().back().tag;
    const CString text = path.Text();
    return Varnotix::KeywordOf(tag).IsEmpty() ? text : text + " " + TagName(tag);
}

CString ShownTag(DWORD tag)
{
    return ShownPath(Varnotix::CElementPath(tag));
}
