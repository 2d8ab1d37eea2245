#include "commands/Commands.h"
#include "edit/ObjectEdit.h"
#include "files/FileKinds.h"
#include "files/Input.h"
#include "object/NearestKeyword.h"
#include "rewrite/Rewrite.h"
#include "run/InputRun.h"

namespace
{

constexpr const char* kFooter =
    "PATH is a keyword, a tag or steps through sequences: PatientID=7, 0010,0020=7,\n"
    "'RequestAttributesSequence[2].ScheduledProcedureStepID=S1'; [] means every item, [+] a new one. A private\n"
    "attribute is (0009,\"CREATOR\",01), and where the object lacks it needs its VR: '(0009,\"CREATOR\",01):LO=text'.\n"
    "VALUE is UTF-8, with backslashes between values; none empties the attribute. What the object lacks is added.\n"
    "Deletions come first. A value that breaks the rules of its VR or the multiplicity, and an edit after which the\n"
    "object would not fit together, is refused without --force; nothing is written then. Setting SOPInstanceUID or\n"
    "SOPClassUID sets the file meta information, too, and setting SpecificCharacterSet converts all texts.\n"
    "Without -o each FILE is replaced when its new content is complete. An argument with an equals sign after a path\n"
    "is an edit; a file of such a name is given as ./NAME.";

struct SSetOptions
{
    SInputs inputs; // The edits, too, until SortArguments.
    CString output; // Empty: in place.
    std::vector<CString> deleted;
    std::vector<SSelection> deletions;
    std::vector<SAssignment> assignments;
    bool force = false;
    bool backup = false;
};

/// Takes the edits out of the inputs.
bool SortArguments(SSetOptions& options, const CReport& report)
{
    std::vector<CString> names;
    for (const CString& argument : options.inputs.names)
    {
        SAssignment assignment;
        const EArgument kind = ReadAssignment(argument.View(), assignment);
        if (kind == EArgument::Assignment)
        {
            options.assignments.push_back(assignment);
        }
        else if (kind == EArgument::BadPath && FileKindOf(argument) == EFileKind::Missing)
        {
            report.Error("'" + argument +
                         "' is neither a file nor an edit: what is before its equals sign is not a path" +
                         NearestKeywordHint(argument.View()));
            return false;
        }
        else
        {
            names.push_back(argument);
        }
    }
    options.inputs.names.swap(names);
    for (const CString& text : options.deleted)
    {
        const std::optional<SSelection> selection = SSelection::Parse(text.View());
        if (!selection)
        {
            report.Error("-d: '" + text + "' is neither a path nor a group nor 'private'" +
                         NearestKeywordHint(text.View()));
            return false;
        }
        options.deletions.push_back(*selection);
    }
    return true;
}

bool CheckArguments(SSetOptions& options, const CReport& report)
{
    if (!SortArguments(options, report))
    {
        return false;
    }
    CString fault;
    if (options.inputs.names.empty())
    {
        fault = "FILE is required";
    }
    else if (options.assignments.empty() && options.deletions.empty())
    {
        fault = "there is no edit: give PATH=VALUE or -d PATH";
    }
    else if (ChosenStreamRules() == STREAM_RULES_CLASSIC)
    {
        fault = "--classic: edits are made by the standard rules only";
    }
    else if (options.backup && !options.output.IsEmpty())
    {
        fault = "--backup: with -o the FILE stays as it is";
    }
    if (!fault.IsEmpty())
    {
        report.Error(fault);
        return false;
    }
    return options.output.IsEmpty() || PlaceOutputs(options.inputs, options.output, report);
}

/// A name beside the file under which nothing is yet.
CString BackupName(const CString& path)
{
    CString name = path + ".bak";
    for (int number = 2; FileKindOf(name) != EFileKind::Missing; ++number)
    {
        name.Format("%s.bak%d", static_cast<const char*>(path), number);
    }
    return name;
}

int EditObject(const SSetOptions& options, const SJob& job, const CString& output)
{
    const CString& path = job.input.path;
    const CString name = ShownName(path);
    CDcmIOD object;
    if (!ReadObject(path, object, job.report))
    {
        return STATUS_UNREADABLE;
    }
    const SObjectForm form = FormOf(object);
    STarget target{CString(), form.syntax, output, CString(), form.isBare, options.force};
    if (!target.staysBare)
    {
        target.uid = UidToKeep(form, name, job.report);
        if (target.uid.IsEmpty())
        {
            return STATUS_UNREADABLE;
        }
    }
    CLossReport losses;
    losses.AddReadNotes(object);
    CObjectEdit edit(object.ElementStore(), options.force);
    for (const SSelection& deletion : options.deletions)
    {
        edit.Delete(deletion);
    }
    for (const SAssignment& assignment : options.assignments)
    {
        edit.Assign(assignment);
    }
    edit.UpdateFileMeta();
    for (const CString& fault : edit.Faults())
    {
        job.report.Error(name + ": " + fault);
    }
    if (!edit.Faults().empty())
    {
        return STATUS_UNREADABLE;
    }
    for (const CString& detail : edit.Details())
    {
        job.report.Detail(name + ": " + detail);
    }
    if (!edit.HasEdits() && options.output.IsEmpty() && path != "-")
    {
        job.report.Say(name + ": nothing is changed");
        return STATUS_DONE;
    }
    target.backup = options.backup && path != "-" ? BackupName(path) : CString();
    Rewrite(object, form, target, name, losses, job.report);
    ReportMetaMismatch(object, name, job.report);
    job.report.Say(name + ": " + edit.Summary());
    return STATUS_DONE;
}

int SetOne(const SSetOptions& options, const SJob& job)
{
    const CString output = options.output.IsEmpty() ? job.input.path : job.input.output;
    return ReportWriteFailures(output, job.report, [&] { return EditObject(options, job, output); });
}

int Set(SSetOptions& options, const CReport& report)
{
    if (!HasDataFiles(report, true))
    {
        return STATUS_UNREADABLE;
    }
    if (!CheckArguments(options, report))
    {
        return STATUS_USAGE;
    }
    return RunInputs(options.inputs, report, "were not edited",
                     [&options](const SJob& job) { return SetOne(options, job); });
}

} // namespace

void AddSet(CCommandLine& line)
{
    const auto options = std::make_shared<SSetOptions>();
    CVerb verb = line.AddVerb("set", "Change, add and delete attributes by path", kFooter);
    verb.Inputs(options->inputs, "Files to edit, '-' is standard input; and the edits, PATH=VALUE or PATH:VR=VALUE");
    verb.Repeated("-d,--delete", options->deleted,
                  "Path of attributes or items, group of four digits, or 'private', to delete; may be repeated");
    verb.Text("-o,--output", options->output,
              "Folder to write to; for a single FILE also a file, or '-' for standard output", CVerb::ENeed::Optional);
    verb.Flag("--backup", options->backup, "Keep each old file under its name and .bak, .bak2 and so on");
    verb.Flag("--force", options->force, "Make edits that are refused otherwise; texts are not converted");
    verb.MessageFlags();
    verb.Action(options, &Set);
}
