#include "script/ScriptTree.h"

#include <algorithm>
#include <optional>

using namespace Varnotix;

namespace
{

/// The elements of a set as ElementPlaces gives them, the next one of each place at the end.
CElementPlaces Unmatched(const CDcmElementSet* set, bool byItem)
{
    CElementPlaces places = set != nullptr ? ElementPlaces(*set, byItem) : CElementPlaces();
    for (auto& [place, elements] : places)
    {
        std::reverse(elements.begin(), elements.end());
    }
    return places;
}

/// True when the lines at the index are those of a text, which has one for each of its line breaks.
bool IsLine(const CStringArray& lines, int index, const CString& own, const CDcmElement& element, int& count)
{
    std::string_view rest = own.CText();
    for (count = 0;; ++count)
    {
        const std::size_t end = rest.find('\n');
        const std::string_view expected = TrimBlanks(rest.substr(0, end));
        if (index + count >= lines.GetSize())
        {
            return false;
        }
        const std::string_view line = TrimBlanks(lines[index + count].CText());
        const bool isSame = count > 0 ? line == expected : SplitAslElement(line).tail == SplitAslElement(expected).tail;
        if (!isSame || (count == 0 && !IsVrOf(SplitAslElement(line).vr, element)))
        {
            return false;
        }
        if (end == std::string_view::npos)
        {
            ++count;
            return true;
        }
        rest.remove_prefix(end + 1);
    }
}

} // namespace

CElementPlaces ElementPlaces(const CDcmElementSet& set, bool byItem)
{
    CElementPlaces found;
    for (int i = 0; i < set.GetCount(); ++i)
    {
        CDcmElement* element = set.GetAt(i);
        if (element->HasEntry())
        {
            found[{byItem ? std::max(element->Item(), 1) : 0, element->Tag()}].push_back(element);
        }
    }
    return found;
}

bool IsVrOf(std::string_view letters, const CDcmElement& element)
{
    return EqualNoCase(letters, VrText(element.Vr())) ||
           (element.LaterVr() != ELaterVr::None && EqualNoCase(letters, LaterVrText(element.LaterVr())));
}

bool IsOwnLine(const CStringArray& lines, int index, const CDcmElement& element, int& count)
{
    return IsLine(lines, index, AslElementLine(element, true), element, count) ||
           IsLine(lines, index, AslElementLine(element), element, count);
}

CScriptTree::CScriptTree(const CStringArray& lines, const CDcmElementSet& store, EStreamRules rules)
    : m_lines(lines), m_reader(lines), m_rules(rules)
{
    ReadLevel(&store, m_root);
}

/// Reads up to the end of the innermost sequence, or of the script.
/// @param set the object's elements there; null when it has none.
/// @param around the line of the sequence.
void CScriptTree::ReadLevel(const CDcmElementSet* set, SScriptLine& around)
{
    CElementPlaces unmatched = Unmatched(set, false);
    SScriptLine skipped;
    SScriptLine* last = &skipped;
    while (const std::optional<SAslEvent> event = m_reader.Next())
    {
        switch (event->kind)
        {
        case EAslEvent::Element:
            last = AddLine(*event, unmatched, around) ? &around.inner.back() : &skipped;
            break;
        case EAslEvent::SequenceBegin:
            ReadLevel(last->element != nullptr ? last->element->Items() : nullptr, *last);
            last->end = m_reader.Line();
            break;
        case EAslEvent::SequenceEnd:
            return;
        case EAslEvent::MissingEnd:
            AddFault(event->line, ScriptNoteText(SCRIPT_OPEN_SEQUENCE));
            return;
        case EAslEvent::LostLine:
        case EAslEvent::Header:
            break;
        case EAslEvent::StrayBegin:
            AddFault(event->line, ScriptNoteText(SCRIPT_STRAY_BEGIN));
            break;
        case EAslEvent::StrayEnd:
            AddFault(event->line, ScriptNoteText(SCRIPT_STRAY_END));
            break;
        case EAslEvent::TooDeep:
            AddFault(event->line, ScriptNoteText(SCRIPT_TOO_DEEP));
            break;
        case EAslEvent::Command:
            ReadCommand(*event, set, unmatched, around);
            break;
        }
    }
}

void CScriptTree::ReadCommand(const SAslEvent& event, const CDcmElementSet* set, CElementPlaces& unmatched,
                              SScriptLine& around)
{
    const std::optional<int> item = m_rules == STREAM_RULES_STANDARD ? AslItemNumber(event.command) : std::nullopt;
    if (item)
    {
        if (&around == &m_root || !BeginItem(*item, set, unmatched, around))
        {
            AddFault(event.line, ScriptNoteText(SCRIPT_BAD_ITEM));
        }
    }
    // A printed object names its own file.
    else if (!EqualNoCase(event.command.keyword, "SOURCE_FILE"))
    {
        m_commands.push_back(event.line);
    }
}

/// Items that the object has may be left out; new ones follow them without a gap.
/// @return false for an item that cannot come here.
bool CScriptTree::BeginItem(int item, const CDcmElementSet* set, CElementPlaces& unmatched, SScriptLine& around) const
{
    const int present = set != nullptr ? set->ItemCount() : 0;
    const bool isFirst = around.items == 0;
    // Lines before the first mark are item 1, unless they could be those of any item.
    const int last = isFirst && !around.inner.empty() ? 1 : around.items;
    if (item <= last || item > std::max(present, last) + 1 || (isFirst && last == 1 && present > 1))
    {
        return false;
    }
    if (isFirst)
    {
        for (SScriptLine& line : around.inner)
        {
            line.item = 1;
        }
        unmatched = Unmatched(set, true);
    }
    around.items = item;
    return true;
}

/// Adds an element line to its level, with the object's next element of the tag.
/// @return false for a line without a tag.
bool CScriptTree::AddLine(const SAslEvent& event, CElementPlaces& unmatched, SScriptLine& around)
{
    if (event.isSequence && !event.isOpened)
    {
        AddFault(event.line, "no #SEQUENCE_BEGIN follows the line of the sequence");
        m_reader.GoOnAt(event.line + 1); // What follows instead may have faults of its own.
    }
    const std::optional<DWORD> tag = Tag::Parse(event.element.group, event.element.element);
    if (!tag)
    {
        AddFault(event.line, "the line does not begin with a tag");
        return false;
    }
    SScriptLine line;
    line.line = event.line;
    line.tag = *tag;
    line.parts = event.element;
    line.item = around.items;
    line.isSequence = event.isSequence;
    if (std::vector<CDcmElement*>& elements = unmatched[{line.item, line.tag}]; !elements.empty())
    {
        line.element = elements.back();
        elements.pop_back();
        int count = 0;
        line.isUnchanged = IsOwnLine(m_lines, event.line, *line.element, count);
        if (line.isUnchanged && count > 1)
        {
            m_reader.GoOnAt(event.line + count);
        }
    }
    line.end = m_reader.Line();
    around.inner.push_back(std::move(line));
    return true;
}
