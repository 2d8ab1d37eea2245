#include "Varnotix/script/DcmAttributeScript.h"

#include "Varnotix/asl/AslReader.h"
#include "Varnotix/asl/AslValues.h"
#include "Varnotix/registry/TagText.h"
#include "Varnotix/script/ScriptItems.h"

using namespace Varnotix;

IMPLEMENT_DYNCREATE(CDcmAttributeScript, CObject)

namespace
{

/// Appends the trimmed texts of a list.
void AppendItems(std::string_view list, CStringArray& items)
{
    for (std::string_view item; NextAslValue(list, item);)
    {
        items.Add(CString(TrimBlanks(item)));
    }
}

/// The element of the line's tag in the module, created when the dictionary knows the tag or can take it in as a
/// private one; otherwise null. A number of more than 16 bits is not a tag: cut, it would put the value into another
/// attribute.
CDcmElement* ElementOfLine(const SAslElement& line, CDcmAttributeModule& module)
{
    const CString group(line.group);
    const CString element(line.element);
    // A tag that is unknown at first may be known at the second step, because another thread has learned it meanwhile.
    if (IsTagNumber(group) && IsTagNumber(element) &&
        (module.Insert(group, element) || module.Insert(group, element, CString(line.vr), CString(line.multiplicity)) ||
         module.Insert(group, element)))
    {
        return module.GetDcmElementSet().Find(group, element);
    }
    return nullptr;
}

} // namespace

CDcmAttributeScript::CDcmAttributeScript() = default;

CDcmAttributeScript::CDcmAttributeScript(const CDcmAttributeScript& other) = default;

CDcmAttributeScript& CDcmAttributeScript::operator=(const CDcmAttributeScript& other) = default;

CDcmAttributeScript::~CDcmAttributeScript() = default;

int CDcmAttributeScript::Run(const CStringArray& lines, CDcmAttributeModule& module, int first)
{
    m_notes.Clear();
    CAslReader reader(lines, first);
    ReadSet(reader, module, nullptr, 0);
    m_notes.Sort();
    return reader.Line();
}

/// Reads the elements of one sequence, or of the whole script.
/// @param items those of the sequence, where items are kept; otherwise null.
void CDcmAttributeScript::ReadSet(CAslReader& reader, CDcmAttributeModule& module, CScriptItems* items, int depth)
{
    CDcmAttributeModule* target = &module;
    CDcmElement* element = nullptr; // That of the last element line.
    while (const std::optional<SAslEvent> event = reader.Next())
    {
        switch (event->kind)
        {
        case EAslEvent::Element:
            element = ReadElement(*event, *target);
            break;
        case EAslEvent::SequenceBegin:
            ReadSequence(reader, event->line, element, depth);
            break;
        case EAslEvent::SequenceEnd:
            return;
        case EAslEvent::MissingEnd:
            m_notes.Add(event->line, SCRIPT_OPEN_SEQUENCE);
            return;
        case EAslEvent::LostLine:
            m_notes.Add(event->line, SCRIPT_LINE_LOST);
            break;
        case EAslEvent::StrayBegin:
            m_notes.Add(event->line, SCRIPT_STRAY_BEGIN);
            break;
        case EAslEvent::StrayEnd:
            m_notes.Add(event->line, SCRIPT_STRAY_END);
            break;
        case EAslEvent::TooDeep:
            m_notes.Add(event->line, SCRIPT_TOO_DEEP);
            break;
        case EAslEvent::Header:
            break;
        case EAslEvent::Command:
            target = &ReadCommand(*event, *target, items);
            break;
        }
    }
}

/// @return the module that takes the elements from here on.
CDcmAttributeModule& CDcmAttributeScript::ReadCommand(const SAslEvent& event, CDcmAttributeModule& module,
                                                      CScriptItems* items)
{
    const std::optional<int> item =
        m_streamRules == STREAM_RULES_STANDARD ? AslItemNumber(event.command) : std::nullopt;
    if (item && items != nullptr && items->Begin(*item))
    {
        return items->Current();
    }
    if (item)
    {
        m_notes.Add(event.line, SCRIPT_BAD_ITEM);
    }
    else if (!Record(event.command))
    {
        m_notes.Add(event.line, SCRIPT_UNKNOWN_COMMAND);
    }
    return module;
}

/// @return the element of the line, or null when the line was skipped.
CDcmElement* CDcmAttributeScript::ReadElement(const SAslEvent& event, CDcmAttributeModule& module)
{
    const SAslElement& line = event.element;
    const int before = module.GetCount();
    CDcmElement* element = ElementOfLine(line, module);
    if (element == nullptr)
    {
        m_notes.Add(event.line, SCRIPT_UNKNOWN_TAG);
        return nullptr;
    }
    if (module.GetCount() == before)
    {
        m_notes.Add(event.line, SCRIPT_REPEATED_TAG);
    }
    // The VR of Pixel Data depends on its content: OB or OW.
    if (!line.vr.empty() && VrCode(line.vr) != element->Vr() && line.vr != LaterVrText(element->LaterVr()) &&
        !element->IsPixelData())
    {
        m_notes.Add(event.line, SCRIPT_OTHER_VR);
    }
    if (line.isTextOutside)
    {
        m_notes.Add(event.line, SCRIPT_TEXT_OUTSIDE_LIST);
    }
    if (!line.isListClosed)
    {
        m_notes.Add(event.line, SCRIPT_OPEN_LIST);
    }
    StoreAslValues(*element, line.values, m_notes, event.line);
    return element;
}

/// Reads the lines of a sequence. They are read as such even where they cannot be stored: taken for lines of the set
/// around them, they would overwrite its attributes.
/// @param begin the line that opened the sequence.
/// @param element the element of the sequence's line, which may have another VR; null when that line was skipped.
void CDcmAttributeScript::ReadSequence(CAslReader& reader, int begin, CDcmElement* element, int depth)
{
    const bool keepsItems = m_streamRules == STREAM_RULES_STANDARD;
    CScriptItems read;
    ReadSet(reader, read.Current(), keepsItems ? &read : nullptr, depth + 1);
    if (element == nullptr || !element->HasVr(VR_SQ))
    {
        m_notes.Add(begin, SCRIPT_SEQUENCE_LOST);
        return;
    }
    CDcmElementSet gathered;
    read.MoveInto(gathered, keepsItems);
    CDcmElementSet* items = element->Items();
    if (depth > 0 && items != nullptr)
    {
        // The element belongs to this reader, so it can share: a copy at each level would cost time in proportion to
        // the depth.
        items->CopyByReference(gathered);
    }
    else
    {
        element->SetItems(gathered);
    }
}

/// @return false for an unknown command.
bool CDcmAttributeScript::Record(const SAslCommand& command)
{
    enum class EForm
    {
        Text,
        Path
    };
    static constexpr struct
    {
        std::string_view keyword;
        CString CDcmAttributeScript::*field;
        EForm form;
    } kSingle[] = {{"SOURCE_FILE", &CDcmAttributeScript::m_sourceFile, EForm::Path},
                   {"TARGET_FILE", &CDcmAttributeScript::m_targetFile, EForm::Path},
                   {"PIXEL_DATA_ROWS", &CDcmAttributeScript::m_rowsText, EForm::Text},
                   {"PIXEL_DATA_COLS", &CDcmAttributeScript::m_colsText, EForm::Text},
                   {"REMOVE_EMPTY_ALL", &CDcmAttributeScript::m_removeEmptyAll, EForm::Text}};
    static constexpr struct
    {
        std::string_view keyword;
        CStringArray CDcmAttributeScript::*field;
        EForm form;
    } kLists[] = {{"PIXEL_DATA_FILE", &CDcmAttributeScript::m_pixelDataFiles, EForm::Path},
                  {"PIXEL_DATA_DIR", &CDcmAttributeScript::m_pixelDataDirectories, EForm::Path},
                  {"REMOVE_EMPTY_GROUP", &CDcmAttributeScript::m_removeEmptyGroups, EForm::Text},
                  {"REMOVE_GROUP", &CDcmAttributeScript::m_removeGroups, EForm::Text},
                  {"ANONYMIZE_GROUP", &CDcmAttributeScript::m_anonymizeGroups, EForm::Text}};
    // Names of files are taken in lower case, for compatibility; the standard rules try them as written first. Names of
    // outputs have nothing to be found by.
    const bool keepsCase = m_streamRules == STREAM_RULES_STANDARD && !EqualNoCase(command.keyword, "TARGET_FILE");
    CString argument(command.argument);
    for (const auto& single : kSingle)
    {
        if (EqualNoCase(command.keyword, single.keyword))
        {
            if (single.form == EForm::Path && !keepsCase)
            {
                argument.MakeLower();
            }
            this->*single.field = argument;
            return true;
        }
    }
    for (const auto& list : kLists)
    {
        if (EqualNoCase(command.keyword, list.keyword))
        {
            if (list.form == EForm::Path)
            {
                if (!keepsCase)
                {
                    argument.MakeLower();
                }
                (this->*list.field).Add(argument);
            }
            else
            {
                AppendItems(command.argument, this->*list.field);
            }
            return true;
        }
    }
    if (!EqualNoCase(command.keyword, "ANONYMIZE_55"))
    {
        return false;
    }
    CStringArray items;
    AppendItems(command.argument, items);
    if (!items.IsEmpty())
    {
        m_anonymize55First = items[0];
    }
    if (items.GetSize() > 1)
    {
        m_anonymize55Second = items[1];
    }
    return true;
}
