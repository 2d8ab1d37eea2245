#include "deid/DeidRun.h"

#include "Varnotix/platform/FileSearch.h"
#include "deid/MethodCodes.h"
#include "deid/PixelRisk.h"
#include "files/Input.h"
#include "files/OutputFolder.h"
#include "object/Attributes.h"
#include "rewrite/CheckedWrite.h"
#include "rewrite/FileMeta.h"

#include <algorithm>

namespace Tag = Varnotix::Tag;

namespace
{

constexpr std::size_t kPreambleSize = 128;

/// A value as the name of a file or folder.
CString NameOf(const CDcmElementSet& store, DWORD tag)
{
    std::string name(TextOf(store, tag).View());
    const auto isPlain = [](char c)
    {
        const char lower = Varnotix::Lower(c);
        return (lower >= 'a' && lower <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_' || c == '.';
    };
    std::replace_if(
        name.begin(), name.end(), [&](char c) { return !isPlain(c); }, '_');
    const bool isOnlyDots = name.find_first_not_of('.') == std::string::npos;
    return isOnlyDots ? CString("none") : CString(std::string_view(name));
}

void ClearPreamble(CFile& file)
{
    const BYTE zeros[kPreambleSize] = {};
    file.Seek(0, CFile::begin);
    file.Write(zeros, kPreambleSize);
}

void RemoveMeta(CDcmElementSet& store)
{
    store.RemoveIf([](const CDcmElement& element) { return element.HasGroup(Tag::kMetaGroup); });
}

/// What a person has to look at, because a program cannot.
CString LeftOf(const CDeidRecord& record, const CDeidentifier& deidentifier, CDcmElementSet& written, unsigned options)
{
    std::vector<CString> parts;
    for (const auto& [beginning, attributes] :
         {std::pair("has texts that were removed elsewhere in the object:",
                    deidentifier.Known().FindLeft(written, options)),
          std::pair("cleaned of known texts only, read:", record.ListOf(EDeidDone::Cleaned))})
    {
        CString part(beginning);
        for (const auto& [path, count] : attributes)
        {
            part += " " + path;
        }
        if (!attributes.empty())
        {
            parts.push_back(part);
        }
    }
    if (TextOf(written, Tag::kBurnedInAnnotation) == "YES")
    {
        parts.push_back(TagAndName(Tag::kBurnedInAnnotation) + " is YES");
    }
    CString text;
    for (const CString& part : parts)
    {
        text += (text.IsEmpty() ? "" : "; ") + part;
    }
    return text;
}

} // namespace

int CDeidRun::Do(const SJob& job)
{
    SDeidOutcome outcome;
    outcome.input = ShownName(job.input.path);
    outcome.state = "failed";
    outcome.reason = "see the messages of the run";
    const int status = ReportWriteFailures(m_folder, job.report,
                                           [&]
                                           {
                                               CDcmIOD object;
                                               return ReadObject(job.input.path, object, job.report)
                                                          ? Write(object, outcome, job.report)
                                                          : STATUS_UNREADABLE;
                                           });
    m_records.Add(outcome, job.console);
    return status;
}

CString CDeidRun::RefusalOf(const CDcmIOD& object, const std::optional<SNewPatient>& patient) const
{
    const CDcmElementSet& store = object.ElementStore();
    if (FormOf(object).isDirectory)
    {
        return "it is a DICOMDIR, and the file offsets in it would be wrong";
    }
    if (!patient)
    {
        return "its patient is not in the list of --id-map";
    }
    const CString risk = m_acceptsPixels ? CString() : PixelRiskOf(store);
    return risk.IsEmpty() ? risk : risk + "; look at it, and use --accept-pixels when nothing in it identifies anyone";
}

int CDeidRun::Write(CDcmIOD& object, SDeidOutcome& outcome, const CReport& report)
{
    CDcmElementSet& store = object.ElementStore();
    const std::optional<SNewPatient> patient = m_profile.patients.Find(store);
    CString refusal = RefusalOf(object, patient);
    if (refusal.IsEmpty() && !m_rectangles.empty())
    {
        refusal = BlackOut(object, m_rectangles, outcome.input, report);
    }
    const SObjectForm form = FormOf(object);
    const CString syntax = refusal.IsEmpty() ? UidToKeep(form, outcome.input, report) : CString();
    if (!refusal.IsEmpty())
    {
        report.Error(outcome.input + ": refused: " + refusal);
        outcome.state = "refused";
        outcome.reason = refusal;
    }
    if (syntax.IsEmpty())
    {
        return kStatusRefused;
    }
    const bool isCleaned = !m_rectangles.empty() && store.Find(Tag::kPixelData) != nullptr;

    CLossReport losses;
    losses.AddReadNotes(object);
    CDeidentifier deidentifier(m_profile, *patient, outcome.record);
    deidentifier.Apply(store);
    SetMethod(store, m_profile.options, isCleaned);
    RemoveMeta(store);
    SObjectForm bare = form;
    bare.hasMeta = false;
    bare.transferSyntax.Empty();
    SetFileMeta(object, bare, outcome.input, syntax, report);
    object.IodSyntax(CDcmRegistry::Global().UidString(form.syntax));

    const CString path = PathOf(store, outcome.input);
    {
        const std::lock_guard lock(m_mutex);
        if (!m_paths.insert(std::string(path.View())).second)
        {
            outcome.reason = "another input with the same SOP Instance UID was written to " + path;
            report.Error(outcome.input + ": not written: " + outcome.reason);
            return STATUS_UNWRITTEN;
        }
        const CString folder = FolderNameOf(path);
        if (m_folders.insert(std::string(folder.View())).second)
        {
            if (const CString fault = MakeFolder(folder); !fault.IsEmpty())
            {
                throw CWriteFailure(std::string(fault.View()));
            }
        }
    }
    COutputFile target(path);
    CDcmIOD written;
    WriteChecked(object, TakeSnapshot(object), outcome.input, {form.syntax, form.syntax, form.compressed},
                 target.File(), losses, written);
    outcome.left = LeftOf(outcome.record, deidentifier, written.ElementStore(), m_profile.options);
    ClearPreamble(target.File());
    target.Commit();
    losses.Print(outcome.input, report);
    outcome.output = path;
    outcome.state = "written";
    outcome.reason.Empty();
    report.Detail(outcome.input + ": written to " + path);
    if (outcome.left.IsEmpty())
    {
        return STATUS_DONE;
    }
    report.Error(outcome.input + ": " + outcome.left);
    return STATUS_LEFT;
}

CString CDeidRun::PathOf(const CDcmElementSet& store, const CString& input) const
{
    constexpr std::size_t kDigits = 16;
    CString path(m_folder);
    for (const DWORD tag : {Tag::kPatientId, Tag::kStudyInstanceUid, Tag::kSeriesInstanceUid})
    {
        path = Varnotix::JoinPath(path, NameOf(store, tag));
    }
    const bool isNamed = !TextOf(store, Tag::kSopInstanceUid).IsEmpty();
    const CString name =
        isNamed ? NameOf(store, Tag::kSopInstanceUid) : "none-" + m_key.HexOf("file", input.View(), kDigits);
    return Varnotix::JoinPath(path, name + ".dcm");
}
