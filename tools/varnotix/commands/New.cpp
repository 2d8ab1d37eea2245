#include "commands/Commands.h"
#include "files/Input.h"
#include "object/NewUid.h"
#include "object/ObjectKinds.h"
#include "rewrite/CheckedWrite.h"

#include <algorithm>
#include <map>
#include <memory>
#include <set>

namespace Tag = Varnotix::Tag;

namespace
{

constexpr const char* kFooter =
    "One line per attribute, by entity and module. Lines of mandatory attributes are open, the others are commented\n"
    "out with ';'. Class, modality and UIDs are filled in.";

struct SNewOptions
{
    CString kind; // One of KindWords.
    CString output = "-";
};

/// The words that name the kinds that scripts are made for.
std::vector<std::string> KindWords()
{
    std::vector<std::string> words;
    for (const SObjectKind& kind : ObjectKinds())
    {
        if (kind.word != nullptr)
        {
            words.emplace_back(kind.word);
        }
    }
    return words;
}

/// The kind that one of KindWords names.
const SObjectKind& KindOf(const CString& word)
{
    return *std::find_if(ObjectKinds().begin(), ObjectKinds().end(),
                         [&](const SObjectKind& kind) { return kind.word != nullptr && word == kind.word; });
}

/// The values that a new script contains.
std::map<DWORD, CString> FirstValues(const SObjectKind& kind)
{
    return {{Tag::kSopClassUid, CString(kind.sopClasses.front())},
            {Tag::kSopInstanceUid, NewUid()},
            {Tag::kModality, kind.modality},
            {Tag::kStudyInstanceUid, NewUid()},
            {Tag::kSeriesInstanceUid, NewUid()},
            {Tag::kFrameOfReferenceUid, NewUid()}};
}

/// The attribute's line without values.
CString EmptyLine(const CDcmElement& attribute)
{
    CString line;
    line.Format("%04x,%04x,%s,%d,", static_cast<unsigned>(attribute.Group()),
                static_cast<unsigned>(attribute.Element()), Varnotix::VrText(attribute.Vr()), attribute.Vm());
    return line + attribute.Name() + ",[]";
}

/// Writes the script of one kind.
class CScriptMaker
{
public:
    explicit CScriptMaker(const SObjectKind& kind)
        : m_kind(kind), m_mandatory(MandatoryModules(kind)), m_values(FirstValues(kind))
    {
        for (const SModuleFacts& needs : m_mandatory)
        {
            m_open.insert(needs.values.begin(), needs.values.end());
            m_open.insert(needs.tags.begin(), needs.tags.end());
        }
    }

    CString Make();

private:
    void AddHead();
    void AddModule(const CDcmModule& module);
    void AddAttribute(const CDcmElement& attribute);
    void AddItems(const CDcmElement& sequence, int depth);
    void AddLine(const CString& line) { m_text += line + "\n"; }

    const SObjectKind& m_kind;
    std::vector<SModuleFacts> m_mandatory;
    std::map<DWORD, CString> m_values;
    std::set<DWORD> m_open;
    std::set<DWORD> m_done;
    CString m_text;
};

CString CScriptMaker::Make()
{
    AddHead();
    const std::unique_ptr<CObject> made(m_kind.objectClass->CreateObject());
    const auto& object = static_cast<const CDcmIOD&>(*made);
    for (int i = 0; i < object.ModuleCount(); ++i)
    {
        const CDcmModule& module = object.ModuleAt(i);
        const CString entity = EntityStarting(module);
        if (!entity.IsEmpty())
        {
            AddLine("\n; entity " + entity);
        }
        AddModule(module);
    }
    return m_text;
}

void CScriptMaker::AddHead()
{
    AddLine(CString("; The attributes of a ") + m_kind.word +
            " object. Put values between the brackets, a comma after each: [DOE^JOHN,]");
    AddLine("; Then build the object: varnotix build SCRIPT -o OUT.dcm");
    AddLine("; A line that begins with ';' is a comment. The open lines are the attributes of types 1 and 2 in the");
    AddLine("; modules that such an object must have (PS3.3); type 2 may stay empty. Open others where you need them,");
    AddLine("; and the sequences that you give values. A line #ITEM=2 in a sequence begins its second item.");
    AddLine(";");
    AddLine("; Pixel data comes from files; open one of these commands:");
    AddLine(";#SOURCE_FILE=object.dcm");
    AddLine(";#PIXEL_DATA_FILE=picture.jpg");
    AddLine(";#PIXEL_DATA_DIR=.\\*.jpg");
}

void CScriptMaker::AddModule(const CDcmModule& module)
{
    const auto needs =
        std::find_if(m_mandatory.begin(), m_mandatory.end(),
                     [&](const SModuleFacts& known) { return known.module == module.GetRuntimeClass(); });
    CString title = CString("; module ") + module.GetRuntimeClass()->m_lpszClassName;
    if (needs == m_mandatory.end())
    {
        title += module.IsKindOf(RUNTIME_CLASS(CDcmMetaFileInformation)) ? ", filled in by the build" : ", optional";
    }
    AddLine(title);
    if (needs != m_mandatory.end() && !needs->values.empty())
    {
        CString names;
        for (const DWORD tag : needs->values)
        {
            const CDcmElement attribute(tag);
            names += (names.IsEmpty() ? CString() : CString(", ")) + attribute.Name();
        }
        AddLine(";   needs values: " + names);
    }
    const CDcmElementSet& declared = module.GetDcmElementSet();
    for (int i = 0; i < declared.GetCount(); ++i)
    {
        AddAttribute(*declared.GetAt(i));
    }
    if (needs == m_mandatory.end())
    {
        return;
    }
    for (const std::vector<DWORD>* const tags : {&needs->values, &needs->tags})
    {
        for (const DWORD tag : *tags)
        {
            // A later edition of the standard than the class's requires it.
            if (!m_done.contains(tag))
            {
                AddAttribute(CDcmElement(tag));
            }
        }
    }
}

/// Several modules may declare an attribute; the first gets it.
void CScriptMaker::AddAttribute(const CDcmElement& attribute)
{
    if (!m_done.insert(attribute.Tag()).second)
    {
        return;
    }
    const bool isOpen = m_open.contains(attribute.Tag()) && !attribute.HasVr(VR_SQ);
    CString line = EmptyLine(attribute);
    const auto value = m_values.find(attribute.Tag());
    if (isOpen && value != m_values.end())
    {
        line = line.Left(line.GetLength() - 1) + value->second + ",]";
    }
    AddLine((isOpen ? CString() : CString(";")) + line);
    AddItems(attribute, 0);
}

/// Items are commented out: most sequences are optional.
void CScriptMaker::AddItems(const CDcmElement& sequence, int depth)
{
    const CDcmElementSet* items = sequence.Items();
    if (items == nullptr)
    {
        return;
    }
    const CString start = ";" + CString(' ', 3 * depth);
    AddLine(start + "#SEQUENCE_BEGIN");
    for (int i = 0; i < items->GetCount(); ++i)
    {
        const CDcmElement& attribute = *items->GetAt(i);
        AddLine(";" + CString(' ', 3 * (depth + 1)) + EmptyLine(attribute));
        AddItems(attribute, depth + 1);
    }
    AddLine(start + "#SEQUENCE_END");
}

int New(const SNewOptions& options, const CReport& report)
{
    if (!HasDataFiles(report, false))
    {
        return STATUS_UNREADABLE;
    }
    return ReportWriteFailures(options.output, report,
                               [&]
                               {
                                   const CString script = CScriptMaker(KindOf(options.kind)).Make();
                                   COutputFile file(options.output);
                                   file.File().Write(script, static_cast<UINT>(script.GetLength()));
                                   file.Commit();
                                   return STATUS_DONE;
                               });
}

} // namespace

void AddNew(CCommandLine& line)
{
    const auto options = std::make_shared<SNewOptions>();
    CVerb verb = line.AddVerb("new", "Write a script to fill in and build", kFooter);
    verb.Choice("KIND", options->kind, KindWords(), "The kind of object");
    verb.Text("-o,--output", options->output, "Script to write; without it, standard output", CVerb::ENeed::Optional);
    verb.Action(options, New);
}
