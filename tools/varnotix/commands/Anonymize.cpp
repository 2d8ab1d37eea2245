#include "commands/Commands.h"
#include "files/Input.h"
#include "rewrite/Identity.h"
#include "rewrite/Rewrite.h"
#include "run/InputRun.h"

#include <algorithm>

namespace
{

constexpr const char* kFooter =
    "32 attributes take the text: names, identifiers and descriptions of patient, physicians, institution and\n"
    "device. Birth date, birth time, age, size and weight are emptied. Those that are missing are not added. UIDs,\n"
    "dates of the study and what the pixels show stay: this is not a de-identification profile of PS3.15. Standard\n"
    "error reports what an object holds that is not covered, also with -q: the same attributes in sequence items,\n"
    "private groups, burned-in annotation. The exit status is then 10. --deep covers the first two. The preamble of\n"
    "the file is cleared. 'deidentify' is the verb for that profile.";

struct SAnonymizeOptions
{
    SInputs inputs;
    CString output;             // A folder, or, for a single input, a file or "-" for standard output.
    CString text = "ANONYMOUS"; // Goes into the identifying attributes; empty: they are removed.
    bool deep = false;          // Also in items; private groups go.
    bool force = false;         // Also what other readers would refuse.
};

constexpr UINT kPreambleSize = 128;

/// Anonymises and writes one object.
class CAnonymizer
{
public:
    CAnonymizer(const CString& name, const SAnonymizeOptions& wanted, const CReport& report)
        : m_name(name), m_wanted(wanted), m_report(report)
    {
    }

    int Write(CDcmIOD& object, const CString& output);

private:
    void Apply(CDcmIOD& object) const;
    void ReportReplaced(const CDcmIOD& object) const;
    void ExpectTexts(std::vector<SSnapshot>& level, bool isReached) const;
    void ClearPreamble(CFile& file) const;

    CString m_name;
    const SAnonymizeOptions& m_wanted;
    const CReport& m_report;
};

int CAnonymizer::Write(CDcmIOD& object, const CString& output)
{
    const SObjectForm form = FormOf(object);
    if (form.isDirectory && !m_wanted.force)
    {
        throw CWriteFailure(std::string((m_name + kChangedDirectory).View()));
    }
    const CString uid = UidToKeep(form, m_name, m_report);
    if (uid.IsEmpty())
    {
        return STATUS_UNREADABLE;
    }
    if (!MayWrite(object, uid, m_wanted.force, m_name, m_report))
    {
        return STATUS_UNWRITTEN;
    }
    CLossReport losses;
    losses.AddReadNotes(object);
    Apply(object);
    SetFileMeta(object, form, m_name, uid, m_report);
    object.IodSyntax(CDcmRegistry::Global().UidString(form.syntax));
    std::vector<SSnapshot> before = TakeSnapshot(object);
    if (object.StreamRules() == STREAM_RULES_CLASSIC)
    {
        ExpectTexts(before, true);
    }

    COutputFile target(output);
    CDcmIOD written;
    WriteChecked(object, before, m_name, {form.syntax, form.syntax, form.compressed}, target.File(), losses, written);
    const CString identity = FindIdentity(written.ElementStore(), m_wanted.text, m_wanted.deep);
    if (!identity.IsEmpty())
    {
        throw CWriteFailure(std::string(
            (m_name + ": nothing is written, because of an internal error: " + identity + " keeps its value").View()));
    }
    ClearPreamble(target.File());
    target.Commit();
    losses.Print(m_name, m_report);
    return ReportUncovered(written.ElementStore(), m_wanted.deep, m_name, m_report);
}

/// The object has no modules, so a write cannot restore an old value from them.
void CAnonymizer::Apply(CDcmIOD& object) const
{
    ReportReplaced(object);
    if (m_wanted.deep)
    {
        RemovePrivateGroups(object);
    }
    AnonymizeIdentity(object, m_wanted.text, m_wanted.deep);
    if (m_wanted.deep)
    {
        SetIdentityRemoved(object.ElementStore());
    }
}

void CAnonymizer::ReportReplaced(const CDcmIOD& object) const
{
    const CDcmElementSet& store = object.ElementStore();
    const bool isNumber = !m_wanted.text.IsEmpty() && m_wanted.text.View()[0] >= '0' && m_wanted.text.View()[0] <= '9';
    for (int i = 0; i < store.GetCount(); ++i)
    {
        const CDcmElement& element = *store.GetAt(i);
        if (!IsIdentifying(element.Tag()))
        {
            continue;
        }
        const bool isValue = TakesAnyText(element);
        CString what(m_wanted.text.IsEmpty() ? ": removed" : ": replaced");
        if (!m_wanted.text.IsEmpty() && !isValue && object.StreamRules() == STREAM_RULES_STANDARD)
        {
            what = ": emptied";
        }
        else if (!m_wanted.text.IsEmpty() && !isValue && !isNumber)
        {
            what += ", though the text is not a value of VR " + element.VrName();
        }
        m_report.Detail(m_name + ": " + TagAndName(element.Tag()) + what);
    }
}

/// By the classic rules anonymised attributes hold texts; their raw bytes are encoded by the write.
void CAnonymizer::ExpectTexts(std::vector<SSnapshot>& level, bool isReached) const
{
    for (SSnapshot& snapshot : level)
    {
        if (isReached && IsIdentifying(snapshot.tag))
        {
            const std::string_view text = m_wanted.text.View();
            snapshot.raw = CSharedBytes::Copy(reinterpret_cast<const BYTE*>(text.data()), text.size());
        }
        ExpectTexts(snapshot.items, m_wanted.deep);
    }
}

/// A preamble may hold identifying text. For an input without one, a read by the classic rules takes the first bytes of
/// its data set.
void CAnonymizer::ClearPreamble(CFile& file) const
{
    BYTE preamble[kPreambleSize] = {};
    file.Seek(0, CFile::begin);
    file.Read(preamble, kPreambleSize);
    if (std::any_of(std::begin(preamble), std::end(preamble), [](BYTE byte) { return byte != 0; }))
    {
        std::fill(std::begin(preamble), std::end(preamble), BYTE{0});
        file.Seek(0, CFile::begin);
        file.Write(preamble, kPreambleSize);
        m_report.Detail(m_name + ": the preamble is cleared");
    }
}

int AnonymizeOne(const SAnonymizeOptions& wanted, const SJob& job)
{
    const SInput& input = job.input;
    return ReportWriteFailures(
        input.output, job.report,
        [&]
        {
            CDcmIOD object;
            return ReadObject(input.path, object, job.report)
                       ? CAnonymizer(ShownName(input.path), wanted, job.report).Write(object, input.output)
                       : STATUS_UNREADABLE;
        });
}

int Anonymize(SAnonymizeOptions& wanted, const CReport& report)
{
    const bool isControlled = std::any_of(wanted.text.View().begin(), wanted.text.View().end(),
                                          [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\\'; });
    if (isControlled)
    {
        report.Error("--text: a value cannot contain a backslash or a control character");
        return STATUS_USAGE;
    }
    if (!PlaceOutputs(wanted.inputs, wanted.output, report))
    {
        return STATUS_USAGE;
    }
    if (!HasDataFiles(report, true))
    {
        return STATUS_UNREADABLE;
    }
    return RunInputs(wanted.inputs, report, "were not anonymised",
                     [&wanted](const SJob& job) { return AnonymizeOne(wanted, job); });
}

} // namespace

void AddAnonymize(CCommandLine& line)
{
    const auto options = std::make_shared<SAnonymizeOptions>();
    CVerb verb = line.AddVerb("anonymize", "Replace or remove identifying attributes", kFooter);
    verb.Inputs(options->inputs, "Files to read; '-' is standard input");
    verb.Text("-o,--output", options->output,
              "Folder to write to; for a single FILE also a file, or '-' for standard output");
    verb.TextWithDefault("--text", options->text, "Text for the attributes; an empty text removes them");
    verb.Flag("--deep", options->deep, "Include sequence items, drop private groups, and record both in the file");
    verb.Flag("--force", options->force, "Write an output that other readers would refuse");
    verb.MessageFlags();
    verb.Action(options, Anonymize);
}
