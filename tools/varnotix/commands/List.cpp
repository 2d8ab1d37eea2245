#include "commands/Commands.h"
#include "files/Input.h"
#include "object/NearestKeyword.h"
#include "run/InputRun.h"
#include "table/Condition.h"
#include "table/TableWriter.h"

#include <algorithm>
#include <functional>

namespace
{

constexpr const char* kFooter =
    "An attribute is a keyword, a tag or a path: PatientName, 0010,0010, '(0009,\"ACME\",01)',\n"
    "'RequestAttributesSequence[1].ScheduledProcedureStepID'; [] stands for all items. Conditions compare numbers "
    "where\n"
    "both sides are numbers. Files are read up to the last attribute that is needed. Files that are not DICOM are\n"
    "skipped in folders.";

constexpr std::string_view kDefaultColumns =
    "PatientID,PatientName,StudyDate,Modality,SeriesNumber,SeriesDescription,InstanceNumber";

constexpr DWORD kSpecificCharacterSet = 0x00080005;

struct SListOptions
{
    SInputs inputs;
    std::vector<CString> columns;
    std::vector<CString> conditions;
    bool asCsv = false;
    bool asJson = false;
    bool asPlain = false;
};

/// What to show, and of which files.
struct SListing
{
    std::vector<SColumn> columns;
    std::vector<CCondition> conditions;
    DWORD stop = 0; // Where files need not be read any further.
};

bool ReadListing(const SListOptions& options, SListing& listing, const CReport& report)
{
    std::string wrong;
    for (const CString& text : options.columns)
    {
        if (!ParseColumns(text.View(), listing.columns, wrong))
        {
            report.Error("-t: '" + CString(std::string_view(wrong)) + "' is not an attribute" +
                         NearestKeywordHint(wrong));
            return false;
        }
    }
    if (options.columns.empty())
    {
        ParseColumns(kDefaultColumns, listing.columns, wrong);
    }
    const bool hasFile = std::any_of(listing.columns.begin(), listing.columns.end(), std::mem_fn(&SColumn::IsFile));
    if (!hasFile && !options.asPlain)
    {
        listing.columns.insert(listing.columns.begin(), {kFileTitle, {}});
    }
    CString fault;
    for (const CString& text : options.conditions)
    {
        std::optional<CCondition> condition = CCondition::Parse(text.View(), fault);
        if (!condition.has_value())
        {
            report.Error("-w: '" + text + "': " + fault);
            return false;
        }
        listing.conditions.push_back(std::move(*condition));
    }
    std::vector<const Varnotix::CElementPath*> paths;
    for (const SColumn& column : listing.columns)
    {
        if (!column.IsFile())
        {
            paths.push_back(&column.path);
        }
    }
    for (const CCondition& condition : listing.conditions)
    {
        paths.push_back(&condition.Path());
    }
    listing.stop = TagAfter(paths, kSpecificCharacterSet);
    return true;
}

int ListOne(const SJob& job, const SListing& listing, CTableWriter& table)
{
    const CString& path = job.input.path;
    CDcmIOD object;
    object.StopBefore(listing.stop);
    SReadStop stop;
    if (!ReadObjectPart(path, object, stop, job.report))
    {
        return STATUS_UNREADABLE;
    }
    for (const CCondition& condition : listing.conditions)
    {
        if (!condition.IsMetBy(object.ElementStore()))
        {
            return ReportStop(path, stop, job.report);
        }
    }
    CTableRow row;
    for (const SColumn& column : listing.columns)
    {
        row.push_back(column.IsFile() ? SCell{{std::string(path.View())}} : CellOf(object.ElementStore(), column.path));
    }
    table.Add(job.input.number, row, job.console);
    return ReportStop(path, stop, job.report);
}

int List(const SListOptions& options, const CReport& report)
{
    if (options.asCsv + options.asJson + options.asPlain > 1)
    {
        report.Error("--csv, --jsonl and --plain exclude each other");
        return STATUS_USAGE;
    }
    SListing listing;
    if (!HasDataFiles(report, false))
    {
        return STATUS_UNREADABLE;
    }
    if (!ReadListing(options, listing, report))
    {
        return STATUS_USAGE;
    }
    const ETableForm form = options.asCsv     ? ETableForm::Csv
                            : options.asJson  ? ETableForm::JsonLines
                            : options.asPlain ? ETableForm::Plain
                                              : ETableForm::Aligned;
    CTableWriter table(form, listing.columns);
    table.Begin();
    const int status = RunInputs(options.inputs, report, "could not be read",
                                 [&](const SJob& job) { return ListOne(job, listing, table); });
    table.Finish();
    return status;
}

} // namespace

void AddList(CCommandLine& line)
{
    const auto options = std::make_shared<SListOptions>();
    options->inputs.entersFolders = true;
    CVerb verb = line.AddVerb("list", "Print attributes of many files, a row for each file", kFooter);
    verb.Inputs(options->inputs, "Files and folders; '-' is standard input");
    verb.Repeated("-t,--attributes", options->columns, "Attributes to show, with commas between them");
    verb.Repeated(
        "-w,--where", options->conditions,
        "Show only files that meet a condition: ATTRIBUTE, an operator (=, !=, <, <=, >, >= or ~ for a regular "
        "expression) and a value; several must all be met");
    verb.Flag("--csv", options->asCsv, "Print comma-separated values (RFC 4180)");
    verb.Flag("--jsonl", options->asJson, "Print a JSON object per line");
    verb.Flag("--plain", options->asPlain,
              "Print the values only, with tabs between them; 'File' in -t is the file's name");
    verb.MessageFlags();
    verb.Action([options](const CReport& report) { return List(*options, report); });
}
