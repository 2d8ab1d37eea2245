#include "script/ScriptFault.h"

#include <algorithm>

CString ScriptPlace(const CString& script, int line)
{
    CString number;
    number.Format(":%d", line + 1);
    return script + number;
}

int ReportFaults(const CString& script, std::vector<SScriptFault> faults, const CReport& report)
{
    std::stable_sort(faults.begin(), faults.end(),
                     [](const SScriptFault& left, const SScriptFault& right) { return left.line < right.line; });
    const auto end =
        std::unique(faults.begin(), faults.end(),
                    [](const SScriptFault& left, const SScriptFault& right) { return left.line == right.line; });
    for (auto fault = faults.begin(); fault != end; ++fault)
    {
        report.Error(ScriptPlace(script, fault->line) + ": " + fault->what);
    }
    return static_cast<int>(end - faults.begin());
}
