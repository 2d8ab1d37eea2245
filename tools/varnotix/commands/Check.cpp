#include "check/ObjectCheck.h"
#include "commands/Commands.h"
#include "files/Input.h"
#include "object/ObjectRules.h"
#include "run/InputRun.h"

#include <atomic>

namespace
{

using ESeverity = SValueFault::ESeverity;

constexpr const char* kFooter =
    "One line per finding: file, error or warning, place, what. Checked are the stream, the file meta information, "
    "the\n"
    "value of every element, private blocks, pixel data, and, for the image classes that 'varnotix new' makes, the\n"
    "attributes of type 1 and 2 of mandatory modules. Conditions of the standard (1C, 2C) and enumerated values are "
    "not.\n"
    "Exit status: 10 when there are errors, 0 when there are warnings only. With -q only errors are printed.";

struct STotals
{
    std::atomic<int> files = 0;
    std::atomic<int> errors = 0;
    std::atomic<int> warnings = 0;
};

CString Counted(int count, const char* noun)
{
    CString text;
    text.Format("%d %s%s", count, noun, count == 1 ? "" : "s");
    return text;
}

int CheckOne(const SJob& job, STotals& totals)
{
    const CString name = ShownName(job.input.path);
    CDcmIOD object;
    SReadStop stop;
    if (!ReadObjectPart(job.input.path, object, stop, job.report))
    {
        return STATUS_UNREADABLE;
    }
    CFindings findings;
    CheckObject(object, findings);
    for (const SFinding& finding : findings.All())
    {
        const bool isError = finding.severity == ESeverity::Error;
        if (isError || !job.report.IsQuiet())
        {
            const CString line =
                name + (isError ? ": error: " : ": warning: ") + finding.where + ": " + finding.what + "\n";
            job.console.Print(line.View());
        }
    }
    job.console.Flush();
    const int errors = findings.Count(ESeverity::Error);
    ++totals.files;
    totals.errors += errors;
    totals.warnings += findings.Count(ESeverity::Warning);
    return std::max<int>(errors > 0 ? STATUS_FOUND : STATUS_DONE, ReportStop(job.input.path, stop, job.report));
}

int Check(const SInputs& inputs, const CReport& report)
{
    if (ChosenStreamRules() == STREAM_RULES_CLASSIC)
    {
        report.Error("--classic: the classic rules do not keep what a check needs");
        return STATUS_USAGE;
    }
    if (!HasDataFiles(report, true))
    {
        return STATUS_UNREADABLE;
    }
    if (ObjectRulesPath().IsEmpty())
    {
        report.Error("objects.txt was not found, without which modules cannot be checked; see 'varnotix where'");
        return STATUS_UNREADABLE;
    }
    STotals totals;
    const int status = RunInputs(inputs, report, "could not be read whole",
                                 [&totals](const SJob& job) { return CheckOne(job, totals); });
    if (totals.files > 0)
    {
        report.Say(Counted(totals.errors, "error") + ", " + Counted(totals.warnings, "warning"));
    }
    return status;
}

} // namespace

void AddCheck(CCommandLine& line)
{
    const auto inputs = std::make_shared<SInputs>();
    CVerb verb = line.AddVerb("check", "Check files against the standard", kFooter);
    verb.Inputs(*inputs, "Files to check; '-' is standard input");
    verb.MessageFlags();
    verb.Action([inputs](const CReport& report) { return Check(*inputs, report); });
}
