#include "commands/Commands.h"
#include "files/Input.h"
#include "object/ObjectKinds.h"
#include "object/TypedObject.h"
#include "object/ValueText.h"
#include "run/InputRun.h"

#include <algorithm>
#include <set>

namespace
{

constexpr const char* kFooter =
    "The modules are those of the object that the SOP Class UID names: CT, MR, CR, nuclear medicine, ultrasound,\n"
    "secondary capture or patient information. In any other object all attributes appear under 'attributes that no\n"
    "module declares'. With --classic, the elements of all items of a sequence appear in one list.";

struct SModulesOptions
{
    SInputs inputs;
    bool withGaps = false; // Also the attributes that a module declares and the object lacks.
};

/// Prints one object.
class CModulePrinter
{
public:
    CModulePrinter(const CDcmIOD& object, bool withGaps, CConsole& console)
        : m_object(object),
          m_characters(CCharacterSet::Of(object.ElementStore(), 0, CCharacterSet())),
          m_withGaps(withGaps),
          m_console(console)
    {
    }

    void Print();

private:
    void PrintModule(const CDcmModule& module);
    void PrintRest();
    void PrintAttribute(const CDcmElement& element, const CDcmElement* declared, const CCharacterSet& characters,
                        int depth) const;
    void PrintItem(const CDcmElementSet& items, int item, const CDcmElementSet* declared, const CCharacterSet& around,
                   int depth) const;
    void PrintGap(const CDcmElement& attribute, int depth) const;
    void PrintLine(const CString& text, int depth) const;

    const CDcmIOD& m_object;
    CCharacterSet m_characters;
    bool m_withGaps;
    CConsole& m_console;
    CString m_entity = "Object"; // Printed before the next module.
    std::set<DWORD> m_declared;
};

void CModulePrinter::Print()
{
    PrintLine(CString("object ") + m_object.GetRuntimeClass()->m_lpszClassName, 0);
    for (int i = 0; i < m_object.ModuleCount(); ++i)
    {
        const CDcmModule& module = m_object.ModuleAt(i);
        const CString starting = EntityStarting(module);
        m_entity = starting.IsEmpty() ? m_entity : starting;
        PrintModule(module);
    }
    PrintRest();
}

void CModulePrinter::PrintModule(const CDcmModule& module)
{
    const CDcmElementSet& store = m_object.ElementStore();
    const CDcmElementSet& declared = const_cast<CDcmModule&>(module).GetDcmElementSet();
    bool isNamed = false;
    for (int i = 0; i < declared.GetCount(); ++i)
    {
        const CDcmElement& attribute = *declared.GetAt(i);
        const CDcmElement* present = store.Find(attribute);
        m_declared.insert(attribute.Tag());
        if (present == nullptr && !m_withGaps)
        {
            continue;
        }
        if (!isNamed)
        {
            if (!m_entity.IsEmpty())
            {
                PrintLine("entity " + m_entity, 0);
                m_entity.Empty();
            }
            PrintLine(CString("module ") + module.GetRuntimeClass()->m_lpszClassName, 1);
            isNamed = true;
        }
        if (present != nullptr)
        {
            PrintAttribute(*present, &attribute, m_characters, 2);
        }
        else
        {
            PrintGap(attribute, 2);
        }
    }
}

void CModulePrinter::PrintRest()
{
    const CDcmElementSet& store = m_object.ElementStore();
    bool isNamed = false;
    for (int i = 0; i < store.GetCount(); ++i)
    {
        const CDcmElement& element = *store.GetAt(i);
        // Of a tag that occurs twice, the first was printed.
        if (m_declared.contains(element.Tag()) && store.Find(element) == &element)
        {
            continue;
        }
        if (!isNamed)
        {
            PrintLine("attributes that no module declares", 0);
            isNamed = true;
        }
        PrintAttribute(element, nullptr, m_characters, 2);
    }
}

void CModulePrinter::PrintAttribute(const CDcmElement& element, const CDcmElement* declared,
                                    const CCharacterSet& characters, int depth) const
{
    const CString value = ValueText(element, characters);
    PrintLine(AttributeName(element) + (value.IsEmpty() ? ":" : ": ") + value, depth);
    const CDcmElementSet* items = element.Items();
    if (items == nullptr)
    {
        return;
    }
    const CDcmElementSet* declaredItems = declared != nullptr ? declared->Items() : nullptr;
    if (m_object.StreamRules() == STREAM_RULES_CLASSIC)
    {
        PrintItem(*items, 0, declaredItems, characters, depth + 1);
        return;
    }
    for (int item = 1; item <= items->ItemCount(); ++item)
    {
        CString title;
        title.Format("item %d", item);
        PrintLine(title, depth + 1);
        PrintItem(*items, item, declaredItems, characters, depth + 2);
    }
}

/// @param item 0 for the elements of all items.
void CModulePrinter::PrintItem(const CDcmElementSet& items, int item, const CDcmElementSet* declared,
                               const CCharacterSet& around, int depth) const
{
    const CCharacterSet characters = CCharacterSet::Of(items, item, around);
    std::set<DWORD> present;
    for (int i = 0; i < items.GetCount(); ++i)
    {
        const CDcmElement& element = *items.GetAt(i);
        if (item == 0 || std::max(element.Item(), 1) == item)
        {
            present.insert(element.Tag());
            PrintAttribute(element, declared != nullptr ? declared->Find(element) : nullptr, characters, depth);
        }
    }
    for (int i = 0; m_withGaps && declared != nullptr && i < declared->GetCount(); ++i)
    {
        if (!present.contains(declared->GetAt(i)->Tag()))
        {
            PrintGap(*declared->GetAt(i), depth);
        }
    }
}

void CModulePrinter::PrintGap(const CDcmElement& attribute, int depth) const
{
    PrintLine(AttributeName(attribute) + ": absent", depth);
}

void CModulePrinter::PrintLine(const CString& text, int depth) const
{
    m_console.Print(std::string(static_cast<std::size_t>(depth) * 2, ' '));
    m_console.Print(text.View());
    m_console.Print("\n");
}

int ModulesOf(const SModulesOptions& options, const SJob& job)
{
    const CString& path = job.input.path;
    CDcmIOD object;
    SReadStop stop;
    if (!ReadObjectPart(path, object, stop, job.report))
    {
        return STATUS_UNREADABLE;
    }
    if (options.inputs.names.size() > 1 || options.inputs.entersFolders)
    {
        job.console.Print(std::string("file ") + std::string(ShownName(path).View()) + "\n");
    }
    const std::unique_ptr<CDcmIOD> typed = MakeTypedObject(object);
    CModulePrinter(*typed, options.withGaps, job.console).Print();
    job.console.Flush();
    return ReportStop(path, stop, job.report);
}

int Modules(const SModulesOptions& options, const CReport& report)
{
    return HasDataFiles(report, false) ? RunInputs(options.inputs, report, "could not be read",
                                                   [&](const SJob& job) { return ModulesOf(options, job); })
                                       : STATUS_UNREADABLE;
}

} // namespace

void AddModules(CCommandLine& line)
{
    const auto options = std::make_shared<SModulesOptions>();
    CVerb verb = line.AddVerb("modules", "Print each file by entity and module, with names and values", kFooter);
    verb.Inputs(options->inputs, "Files to print; '-' is standard input");
    verb.Flag("--gaps", options->withGaps, "Also name the attributes that are absent");
    verb.MessageFlags();
    verb.Action(options, Modules);
}
