#include "commands/Commands.h"
#include "files/Input.h"
#include "object/Entities.h"
#include "object/NewUid.h"
#include "rewrite/CheckedWrite.h"
#include "script/ScriptKinds.h"

#include <algorithm>
#include <map>
#include <memory>
#include <set>

namespace
{

constexpr const char* kFooter =
    "One line an attribute, by entity and module. What such an object must have is open, the rest is commented out\n"
    "with ';'. Class, modality and UIDs are filled in.";

struct SNewOptions
{
    CString kind; // One of ScriptKindWords.
    CString output = "-";
};

/// What a new script holds already.
std::map<DWORD, CString> FirstValues(const SScriptKind& kind)
{
    return {{0x00080016, kind.sopClass}, {0x00080018, NewUid()}, {0x00080060, kind.modality},
            {0x0020000D, NewUid()},      {0x0020000E, NewUid()}, {0x00200052, NewUid()}};
}

/// The attribute's line without values.
CString EmptyLine(const CDcmElement& attribute)
{
    CString line;
    line.Format("%04x,%04x,%s,%d,", static_cast<unsigned>(attribute.Group()),
                static_cast<unsigned>(attribute.Element()), VrText(attribute.Vr()), attribute.Vm());
    return line + attribute.Name() + ",[]";
}

/// Writes the script of one kind.
class CScriptMaker
{
public:
    explicit CScriptMaker(const SScriptKind& kind) : m_kind(kind), m_values(FirstValues(kind))
    {
        for (const SNeeds& needs : kind.needs)
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

    const SScriptKind& m_kind;
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
            " object. Put values between the brackets, a comma behind " + "each: [DOE^JOHN,]");
    AddLine("; Then build the object: varnotix build SCRIPT -o OUT.dcm");
    AddLine("; A line that begins with ';' is a comment. The open lines are the attributes of types 1 and 2 in the");
    AddLine("; modules that such an object must have (PS3.3); type 2 may stay empty. Open others where you need them,");
    AddLine("; and the sequences that you give values: an empty sequence is not written.");
    AddLine(";");
    AddLine("; Pixel data comes from files; open one of these commands:");
    AddLine(";#SOURCE_FILE=object.dcm");
    AddLine(";#PIXEL_DATA_FILE=picture.jpg");
    AddLine(";#PIXEL_DATA_DIR=.\\*.jpg");
}

void CScriptMaker::AddModule(const CDcmModule& module)
{
    const auto needs = std::find_if(m_kind.needs.begin(), m_kind.needs.end(),
                                    [&](const SNeeds& known) { return known.module == module.GetRuntimeClass(); });
    CString title = CString("; module ") + module.GetRuntimeClass()->m_lpszClassName;
    if (needs == m_kind.needs.end())
    {
        title += module.IsKindOf(RUNTIME_CLASS(CDcmMetaFileInformation)) ? ", filled in by the build" : ", optional";
    }
    AddLine(title);
    if (needs != m_kind.needs.end() && !needs->values.empty())
    {
        CString names;
        for (const DWORD tag : needs->values)
        {
            const CDcmElement attribute(static_cast<int>(tag >> 16U), static_cast<int>(tag & 0xFFFFU));
            names += (names.IsEmpty() ? CString() : CString(", ")) + attribute.Name();
        }
        AddLine(";   needs values: " + names);
    }
    const CDcmElementSet& declared = module.GetDcmElementSet();
    for (int i = 0; i < declared.GetCount(); ++i)
    {
        AddAttribute(*declared.GetAt(i));
    }
    if (needs == m_kind.needs.end())
    {
        return;
    }
    for (const std::vector<DWORD>* const tags : {&needs->values, &needs->tags})
    {
        for (const DWORD tag : *tags)
        {
            // The standard came to ask for it after the class was made.
            if (!m_done.contains(tag))
            {
                AddAttribute(CDcmElement(static_cast<int>(tag >> 16U), static_cast<int>(tag & 0xFFFFU)));
            }
        }
    }
}

/// Several modules may declare an attribute; it stands at the first.
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

/// Items are for those who fill them in: a sequence without values is not written.
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
    return TellingFailures(options.output, report,
                           [&]
                           {
                               const CString script = CScriptMaker(ScriptKind(std::string(options.kind.View()))).Make();
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
    verb.Choice("KIND", options->kind, ScriptKindWords(), "The kind of object");
    verb.Text("-o,--output", options->output, "Script to write; without it, standard output", CVerb::ENeed::Optional);
    verb.Action([options](const CReport& report) { return New(*options, report); });
}
