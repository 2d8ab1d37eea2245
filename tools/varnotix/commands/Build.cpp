#include "commands/Commands.h"
#include "files/Input.h"
#include "json/JsonReader.h"
#include "json/TextEncoding.h"
#include "object/Attributes.h"
#include "object/ObjectKinds.h"
#include "rewrite/CheckedWrite.h"
#include "rewrite/FileMeta.h"
#include "rewrite/Identity.h"
#include "rewrite/NewObject.h"
#include "rewrite/RawValue.h"
#include "script/GroupCommands.h"
#include "script/LineValues.h"
#include "script/ScriptObject.h"
#include "script/ScriptTree.h"

#include <algorithm>
#include <set>

namespace
{

constexpr const char* kFooter =
    "The script's lines are the attributes; its commands name the files that pixel data comes from, what to anonymise\n"
    "and what to remove. The file meta information is completed. Each lost line, each line without a value that must\n"
    "have one, and each file that gives no pixel data is named with the reason; nothing is written then, unless\n"
    "--force is given. JPEG pictures become encapsulated frames, and what their headers say replaces what the script\n"
    "says. A script opens the files that it names, so trust it as you trust a program. A document in the DICOM JSON\n"
    "model may come in its place; it opens the files of its references.";

constexpr const char* kNoAttributes = ": it names no attributes";

struct SBuildOptions
{
    CString script;
    CString output;              // A path, or "-" for standard output; empty: what the script says.
    int syntax = SYNTAX_UNKNOWN; // The syntax to write (see ESyntax); unknown: what the script says.
    bool force = false;          // Also when lines or sources are lost.
    CString characterSet;        // Of the texts of a JSON document; empty: the one that it names.
};

/// The attributes that must have values in an object of this SOP class (PS3.3 type 1), of those modules for which the
/// script has a line for each; none for a class without rules here.
std::set<DWORD> NeededValues(const CDcmElementSet& store, const SScriptLine& root)
{
    std::set<DWORD> given;
    for (const SScriptLine& line : root.inner)
    {
        given.insert(line.tag);
    }
    const CString sopClass = TextOf(store, Varnotix::Tag::kSopClassUid);
    std::set<DWORD> needed;
    for (const SObjectKind& kind : ObjectKinds())
    {
        if (std::find(kind.sopClasses.begin(), kind.sopClasses.end(), sopClass.View()) == kind.sopClasses.end())
        {
            continue;
        }
        for (const SModuleFacts& facts : MandatoryModules(kind))
        {
            const std::vector<DWORD>& values = facts.values;
            if (std::all_of(values.begin(), values.end(), [&](DWORD tag) { return given.contains(tag); }))
            {
                needed.insert(values.begin(), values.end());
            }
        }
    }
    return needed;
}

bool HasNoValue(const CDcmElementSet& store, DWORD tag)
{
    const CDcmElement* element = store.Find(tag);
    return element == nullptr || element->IsEmptyValue();
}

/// Whether the element of a line has the VR that the line names.
/// @param around the lines, matched with the object.
bool HasItsVr(const SScriptLine& around, int line)
{
    return std::any_of(around.inner.begin(), around.inner.end(),
                       [&](const SScriptLine& one)
                       {
                           const bool isIt = one.line == line && one.element != nullptr;
                           return (isIt && Varnotix::TrimBlanks(one.parts.vr) == one.element->VrLetters()) ||
                                  HasItsVr(one, line);
                       });
}

/// Builds one object.
class CBuilder
{
public:
    CBuilder(const CString& name, const CStringArray& lines, const SBuildOptions& options, const CReport& report)
        : m_name(name), m_lines(lines), m_wanted(options), m_report(report)
    {
        CDcmAttributeModule read;
        m_script.StreamRules(ChosenStreamRules());
        m_script.Run(lines, read);
    }

    int Write();

private:
    CString Output() const;
    bool CheckLines(const CDcmIOD& object) const;
    void RemoveEmptySequences(CDcmElementSet& set, const CString& path) const;

    const CString& m_name;
    const CStringArray& m_lines;
    const SBuildOptions& m_wanted;
    const CReport& m_report;
    CDcmAttributeScript m_script; // For what the object itself does not do.
};

int CBuilder::Write()
{
    const CString output = Output();
    if (output.IsEmpty())
    {
        m_report.Error("-o: the script has no TARGET_FILE, so the output must be named");
        return STATUS_USAGE;
    }
    CDcmCompositeIOD object;
    object.StreamRules(ChosenStreamRules());
    const bool hasArguments = CheckCommandArguments(m_script, m_name, m_report);
    const bool hasSources = BuildObject(m_script, m_lines, object, m_name, m_report);
    if (object.StreamRules() == STREAM_RULES_STANDARD)
    {
        RestoreLines(CScriptTree(m_lines, object.ElementStore(), object.StreamRules()).Root(), object.ElementStore());
    }
    const bool isWhole = CheckLines(object) && hasArguments && hasSources;
    if (!isWhole && !m_wanted.force)
    {
        m_report.Error(output +
                       ": not written, because of what is missing or could not be followed; --force writes the rest");
        return STATUS_UNREADABLE;
    }
    ApplyGroupCommands(m_script, object.ElementStore(), m_name, m_report);
    if (object.StreamRules() == STREAM_RULES_CLASSIC)
    {
        RemoveEmptySequences(object.ElementStore(), CString());
    }
    CompleteFileMeta(object, m_name, m_report);
    EncodeRawValues(object.ElementStore());
    const bool anonymizes = !m_script.Anonymize55First().IsEmpty() || !m_script.AnonymizeGroups().IsEmpty();
    const int status = anonymizes ? ReportUncovered(object.ElementStore(), false, m_name, m_report) : STATUS_DONE;

    const int result = WriteNewObject(object, {m_wanted.syntax, output, m_wanted.force}, m_name, m_report);
    return std::max(status, result);
}

/// Paths in scripts may have the separators of another system.
CString CBuilder::Output() const
{
    if (!m_wanted.output.IsEmpty() || m_script.TargetFile().IsEmpty())
    {
        return m_wanted.output;
    }
    std::string path(m_script.TargetFile().CText());
    std::replace(path.begin(), path.end(), '\\', '/');
    m_report.Detail(m_name + ": TARGET_FILE: " + CString(path));
    return CString(path);
}

/// Reports the lines that the reader could not follow. False when lines were lost.
bool CBuilder::CheckLines(const CDcmIOD& object) const
{
    const CDcmElement* pixels = object.ElementStore().Find(Varnotix::Tag::kPixelData);
    const bool hasPixels = pixels != nullptr && !pixels->IsEmptyValue();
    const CScriptTree tree(m_lines, CDcmElementSet(), m_script.StreamRules());
    const std::set<DWORD> needed = NeededValues(object.ElementStore(), tree.Root());
    std::set<int> replaced;
    std::vector<SScriptFault> faults;
    for (const SScriptLine& line : tree.Root().inner)
    {
        // The line of pixel data in a printed object; the frames come from the source file that the document names.
        if (hasPixels && line.tag == Varnotix::Tag::kPixelData)
        {
            replaced.insert(line.line);
        }
        if (Varnotix::Tag::Group(line.tag) < kFirstGroup)
        {
            faults.push_back({line.line, kNoPlaceInFile});
        }
        if (needed.contains(line.tag) && Varnotix::TrimBlanks(line.parts.values).empty() &&
            HasNoValue(object.ElementStore(), line.tag))
        {
            faults.push_back({line.line, TagAndName(line.tag) + " needs a value (type 1)"});
        }
    }
    const CScriptTree placed(m_lines, object.ElementStore(), m_script.StreamRules());
    for (const SScriptNote& note : m_script.Notes())
    {
        if (note.kind == SCRIPT_OTHER_VR && HasItsVr(placed.Root(), note.line))
        {
            continue;
        }
        if (note.kind == SCRIPT_OTHER_VR)
        {
            m_report.Say(ScriptPlace(m_name, note.line) + ": " + Varnotix::ScriptNoteText(note.kind));
        }
        else if (note.kind != SCRIPT_NOT_IMPORTED || !replaced.contains(note.line))
        {
            faults.push_back({note.line, Varnotix::ScriptNoteText(note.kind)});
        }
    }
    const int count = ReportFaults(m_name, faults, m_report);
    if (count > 0 && !hasPixels && needed.contains(Varnotix::Tag::kRows))
    {
        m_report.ErrorLine(
            "There is no pixel data: #SOURCE_FILE, #PIXEL_DATA_FILE or #PIXEL_DATA_DIR names it, and what "
            "describes it comes with it.");
    }
    if (object.ElementStore().IsEmpty() && tree.Root().inner.empty())
    {
        m_report.Error(m_name + kNoAttributes);
        return false;
    }
    return count == 0;
}

/// By the classic rules a reader takes the element after an empty sequence for one of its items.
void CBuilder::RemoveEmptySequences(CDcmElementSet& set, const CString& path) const
{
    for (int i = set.GetCount() - 1; i >= 0; --i)
    {
        CDcmElement* element = set.GetAt(i);
        if (!element->HasVr(VR_SQ))
        {
            continue;
        }
        if (CDcmElementSet* items = element->Items())
        {
            RemoveEmptySequences(*items, path + TagName(element->Tag()) + ">");
        }
        if (element->Items() == nullptr || element->Items()->IsEmpty())
        {
            m_report.Say(m_name + ": " + path + TagAndName(element->Tag()) +
                         " is left out: what follows an empty sequence is read as a part of it");
            set.Remove(element);
        }
    }
}

/// True for a document in JSON; the lines of a script begin otherwise.
bool IsJson(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    return first != std::string_view::npos && (text[first] == '{' || text[first] == '[');
}

int BuildFromJson(std::string_view json, const SBuildOptions& options, const CString& name, const CReport& report)
{
    if (options.output.IsEmpty())
    {
        report.Error("-o: a JSON document names no output, so it must be given");
        return STATUS_USAGE;
    }
    CDcmIOD object;
    object.StreamRules(ChosenStreamRules());
    try
    {
        CJsonReader reader;
        reader.Read(json, object.ElementStore());
        EncodeTexts(object.ElementStore(), options.characterSet);
        if (!reader.PixelSyntax().IsEmpty())
        {
            DeclareTransferSyntax(object, reader.PixelSyntax(), name, report);
        }
    }
    catch (const CJsonFault& fault)
    {
        report.Error(name + ": " + fault.what());
        return STATUS_UNREADABLE;
    }
    if (object.ElementStore().IsEmpty())
    {
        report.Error(name + kNoAttributes);
        return STATUS_UNREADABLE;
    }
    CompleteFileMeta(object, name, report);
    return WriteNewObject(object, {options.syntax, options.output, options.force}, name, report);
}

int Build(const SBuildOptions& options, const CReport& report)
{
    if (!HasDataFiles(report, true))
    {
        return STATUS_UNREADABLE;
    }
    CByteArray text;
    if (!ReadText(options.script, text, report))
    {
        return STATUS_UNREADABLE;
    }
    const std::string_view view(reinterpret_cast<const char*>(text.GetData()),
                                static_cast<std::size_t>(text.GetSize()));
    const CString name = ShownName(options.script);
    const auto build = [&]
    {
        if (IsJson(view))
        {
            return BuildFromJson(view, options, name, report);
        }
        CStringArray lines;
        SplitLines(text, lines);
        return CBuilder(name, lines, options, report).Write();
    };
    return ReportWriteFailures(options.output.IsEmpty() ? name : options.output, report, build);
}

} // namespace

void AddBuild(CCommandLine& line)
{
    const auto options = std::make_shared<SBuildOptions>();
    CVerb verb = line.AddVerb("build", "Make an object from a script or a JSON document", kFooter);
    verb.Text("SCRIPT", options->script, "Script or JSON document to read; '-' is standard input");
    verb.Text("-o,--output", options->output,
              "File to write; '-' is standard output. Without it, the script's TARGET_FILE", CVerb::ENeed::Optional);
    verb.Syntax(options->syntax, "The syntax to write; without it, what the script says", CVerb::ENeed::Optional);
    verb.Flag("--force", options->force, "Write what there is when lines or files are lost");
    verb.Text(
        "--charset", options->characterSet,
        "With a JSON document: the Specific Character Set to encode its texts in; without it, the one that it names",
        CVerb::ENeed::Optional);
    verb.MessageFlags();
    verb.Action(options, Build);
}
