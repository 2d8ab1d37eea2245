#include "script/ScriptTree.h"

#include <algorithm>
#include <optional>

std::map<DWORD, std::vector<CDcmElement*>> ElementsByTag(const CDcmElementSet& set)
{
    std::map<DWORD, std::vector<CDcmElement*>> found;
    for (int i = 0; i < set.GetCount(); ++i)
    {
        if (set.GetAt(i)->HasEntry())
        {
            found[set.GetAt(i)->Tag()].push_back(set.GetAt(i));
        }
    }
    return found;
}

bool IsOwnLine(const CStringArray& lines, int index, const CDcmElement& element, int& count)
{
    const CString own = AslElementLine(element);
    std::string_view rest = own.CText();
    for (count = 0;; ++count)
    {
        const std::size_t end = rest.find('\n');
        const std::string_view expected = Varnotix::TrimBlanks(rest.substr(0, end));
        if (index + count >= lines.GetSize())
        {
            return false;
        }
        const std::string_view line = Varnotix::TrimBlanks(lines[index + count].CText());
        const bool isSame = count > 0 ? line == expected : SplitAslElement(line).tail == SplitAslElement(expected).tail;
        if (!isSame || (count == 0 && !Varnotix::EqualNoCase(SplitAslElement(line).vr, VrText(element.Vr()))))
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

CScriptTree::CScriptTree(const CStringArray& lines, const CDcmElementSet& store) : m_lines(lines), m_reader(lines)
{
    ReadLevel(&store, m_tree);
}

/// Reads up to the end of the innermost sequence, or of the script.
/// @param set the object's elements there; null when it has none.
void CScriptTree::ReadLevel(const CDcmElementSet* set, std::vector<SScriptLine>& level)
{
    std::map<DWORD, std::vector<CDcmElement*>> unmatched;
    if (set != nullptr)
    {
        unmatched = ElementsByTag(*set);
    }
    for (auto& [tag, elements] : unmatched)
    {
        std::reverse(elements.begin(), elements.end()); // They are taken from the end.
    }
    SScriptLine skipped;
    SScriptLine* last = &skipped;
    while (const std::optional<SAslEvent> event = m_reader.Next())
    {
        switch (event->kind)
        {
        case EAslEvent::Element:
            last = AddLine(*event, unmatched, level) ? &level.back() : &skipped;
            break;
        case EAslEvent::SequenceBegin:
            ReadLevel(last->element != nullptr ? last->element->Items() : nullptr, last->item);
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
            // A printed object names its own file.
            if (!Varnotix::EqualNoCase(event->command.keyword, "SOURCE_FILE"))
            {
                m_commands.push_back(event->line);
            }
            break;
        }
    }
}

/// Adds an element line to its level, with the object's next element of the tag.
/// @return false for a line without a tag.
bool CScriptTree::AddLine(const SAslEvent& event, std::map<DWORD, std::vector<CDcmElement*>>& unmatched,
                          std::vector<SScriptLine>& level)
{
    if (event.isSequence && !event.isOpened)
    {
        AddFault(event.line, "no #SEQUENCE_BEGIN follows the line of the sequence");
        m_reader.GoOnAt(event.line + 1); // What follows instead may have faults of its own.
    }
    const std::optional<DWORD> tag = Varnotix::Tag::Parse(event.element.group, event.element.element);
    if (!tag)
    {
        AddFault(event.line, "the line does not begin with a tag");
        return false;
    }
    SScriptLine line;
    line.line = event.line;
    line.tag = *tag;
    line.parts = event.element;
    line.isSequence = event.isSequence;
    if (std::vector<CDcmElement*>& elements = unmatched[line.tag]; !elements.empty())
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
    level.push_back(std::move(line));
    return true;
}
