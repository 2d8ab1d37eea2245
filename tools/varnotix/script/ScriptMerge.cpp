#include "script/ScriptMerge.h"

#include "rewrite/RawValue.h"
#include "script/LineValues.h"

#include <algorithm>

namespace
{

// A longer value of bytes is printed as its length.
constexpr std::size_t kLongestPrintedBytes = 5000;

bool IsByte(std::string_view text)
{
    const std::string_view digits = Varnotix::TrimBlanks(text);
    return !digits.empty() && digits.size() <= 3 &&
           std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; }) &&
           std::stoi(std::string(digits)) <= 0xFF;
}

/// True for numbers from 0 to 255, and for one text that does not begin like a number.
bool IsByteList(std::string_view list)
{
    std::string_view rest = list;
    bool hasOnlyNumbers = true;
    for (std::string_view value; Varnotix::NextAslValue(rest, value);)
    {
        hasOnlyNumbers = hasOnlyNumbers && IsByte(value);
    }
    const std::string_view text = Varnotix::TrimBlanks(list);
    return hasOnlyNumbers || (text.find(',') == std::string_view::npos && text.find_first_of("0123456789+-") != 0);
}

bool HasComma(const CDcmElement& element)
{
    const CStringArray* texts = element.Texts();
    return texts != nullptr &&
           std::any_of(texts->begin(), texts->end(), [](const CString& text) { return text.Find(',') >= 0; });
}

/// True when the lines of a sequence, and of those in it, are all the object's own. Some may be missing.
bool IsUnchanged(const SScriptLine& line)
{
    return line.element != nullptr && (line.isUnchanged || (line.isSequence && line.element->HasVr(VR_SQ))) &&
           std::all_of(line.inner.begin(), line.inner.end(), IsUnchanged);
}

CString Number(const char* format, int number)
{
    CString text;
    text.Format(format, number);
    return text;
}

} // namespace

CScriptMerge::CScriptMerge(const CStringArray& lines, CDcmIOD& object) : m_lines(lines), m_rules(object.StreamRules())
{
    const CScriptTree tree(lines, object.ElementStore(), m_rules);
    m_faults = tree.Faults();
    m_commands = tree.Commands();
    MergeLevel(tree.Root(), object.ElementStore());
}

/// @param around the line of the sequence.
void CScriptMerge::MergeLevel(const SScriptLine& around, CDcmElementSet& set)
{
    CElementPlaces elements = ElementPlaces(set, around.items > 0);
    std::map<std::pair<int, DWORD>, std::vector<const SScriptLine*>> lines;
    for (const SScriptLine& line : around.inner)
    {
        lines[{line.item, line.tag}].push_back(&line);
    }
    for (const auto& [place, ofPlace] : lines)
    {
        MergeTag(ofPlace, elements[place], set);
    }
}

/// Where items are not marked, a tag may occur several times and is identified by its place only.
void CScriptMerge::MergeTag(const std::vector<const SScriptLine*>& lines, const std::vector<CDcmElement*>& elements,
                            CDcmElementSet& set)
{
    if (lines.size() == elements.size())
    {
        std::for_each(lines.begin(), lines.end(), [&](const SScriptLine* line) { MergeLine(*line); });
        return;
    }
    if (elements.empty() && lines.size() == 1)
    {
        Add(*lines.front(), set);
        return;
    }
    if (elements.size() <= 1)
    {
        AddFault(lines[1]->line, Number("line %d already has this tag", lines[0]->line + 1));
        return;
    }
    // Removed lines change nothing; a changed line could belong to any of the elements.
    auto element = elements.begin();
    for (const SScriptLine* line : lines)
    {
        const auto isMine = [&](const CDcmElement* own)
        {
            int count = 0;
            return own->HasVr(VR_SQ) ? own == line->element && IsUnchanged(*line)
                                     : IsOwnLine(m_lines, line->line, *own, count);
        };
        element = std::find_if(element, elements.end(), isMine);
        if (element == elements.end())
        {
            AddFault(
                line->line,
                Number("the object holds this tag %d times here, ", static_cast<int>(elements.size())) +
                    Number("and the script %d times: it is unclear which one changed", static_cast<int>(lines.size())));
            return;
        }
        ++element;
    }
}

void CScriptMerge::MergeLine(const SScriptLine& line)
{
    if (!line.element->HasVr(VR_SQ) || !line.isSequence)
    {
        if (!line.isUnchanged)
        {
            Change(line);
        }
        return;
    }
    MergeItems(line);
}

void CScriptMerge::MergeItems(const SScriptLine& line)
{
    if (line.element->Items() == nullptr)
    {
        line.element->SetItems(CDcmElementSet());
    }
    if (CDcmElementSet* items = line.element->Items())
    {
        for (; items->ItemCount() < line.items; ++m_addedItems)
        {
            items->BeginItem();
        }
        MergeLevel(line, *items);
    }
}

/// An empty list empties the value.
bool CScriptMerge::IsClear(const SScriptLine& line) const
{
    return line.parts.values.empty() && line.parts.isListClosed && !line.parts.isTextOutside &&
           Varnotix::TrimBlanks(m_lines[line.line].CText()).ends_with(']');
}

void CScriptMerge::Change(const SScriptLine& line)
{
    CDcmElement& element = *line.element;
    if (!MayApply(line))
    {
        return;
    }
    CDcmElement changed(element.Group(), element.Element(), element.Vr());
    changed.SetLaterVr(element.LaterVr());
    if (IsSingleText(element) && CountValues(line.parts.values) > 1)
    {
        changed.SetRawBytes(WithSingleText(element, line.parts.values).RawBytes());
    }
    else if (!IsClear(line))
    {
        CDcmAttributeModule module;
        if (!Read(line, module))
        {
            return;
        }
        CDcmElement& made = *module.GetDcmElementSet().GetAt(0);
        if (Varnotix::VrKind(made.Vr()) != Varnotix::VrKind(element.Vr()))
        {
            AddFault(line.line, CString("in this object its VR is ") + Varnotix::VrText(element.Vr()) +
                                    ", of which a value cannot be read from text");
            return;
        }
        changed.SetRawBytes(EncodedValue(made));
    }
    element = changed;
    m_changes.push_back({line.line, line.tag, false});
}

void CScriptMerge::Add(const SScriptLine& line, CDcmElementSet& set)
{
    if (m_rules == STREAM_RULES_STANDARD && line.item == 0 && set.ItemCount() > 1)
    {
        AddFault(line.line, Number("the sequence has %d items: put #ITEM= and a number before the lines of each",
                                   set.ItemCount()));
        return;
    }
    if (!MayApply(line))
    {
        return;
    }
    CDcmAttributeModule module;
    if (Read(line, module))
    {
        EncodeRawValues(module.GetDcmElementSet());
        CDcmElement& made = *module.GetDcmElementSet().GetAt(0);
        if (IsSingleText(made) && CountValues(line.parts.values) > 1)
        {
            made.SetRawBytes(WithSingleText(made, line.parts.values).RawBytes());
        }
        set.SelectItem(line.item);
        set.Add(new CDcmElement(made));
        m_changes.push_back({line.line, line.tag, true});
    }
}

/// Reads the line, with those of its sequence, as a script of its own.
bool CScriptMerge::Read(const SScriptLine& line, CDcmAttributeModule& module)
{
    CStringArray own;
    for (int i = line.line; i < line.end; ++i)
    {
        own.Add(m_lines[i]);
    }
    CDcmAttributeScript reader;
    reader.StreamRules(m_rules);
    reader.Run(own, module);
    const std::size_t before = m_faults.size();
    for (const SScriptNote& note : reader.Notes())
    {
        if (note.kind != SCRIPT_OTHER_VR && note.kind != SCRIPT_UNKNOWN_COMMAND)
        {
            AddFault(line.line + note.line, Varnotix::ScriptNoteText(note.kind));
        }
    }
    return m_faults.size() == before && module.GetCount() == 1;
}

/// Adds the faults of a line and of those in its sequence.
bool CScriptMerge::MayApply(const SScriptLine& line)
{
    const CString reason = ReasonAgainst(line);
    if (!reason.IsEmpty())
    {
        AddFault(line.line, reason);
    }
    return std::count_if(line.inner.begin(), line.inner.end(),
                         [&](const SScriptLine& part) { return !MayApply(part); }) == 0 &&
           reason.IsEmpty();
}

/// Why a line must not be applied, beyond what its reader notes; empty when it may.
CString CScriptMerge::ReasonAgainst(const SScriptLine& line) const
{
    if (Varnotix::Tag::Group(line.tag) < kFirstGroup)
    {
        return kNoPlaceInFile;
    }
    if (Varnotix::Tag::IsGroupLength(line.tag))
    {
        return "the write computes group lengths; remove the line";
    }
    if (line.tag == Varnotix::Tag::kTransferSyntaxUid)
    {
        return "the transfer syntax is not changed here; use 'varnotix convert'";
    }
    if (line.tag == Varnotix::Tag::kPixelData)
    {
        return "pixel data cannot be read from text; remove the line";
    }
    const CDcmElement* element = line.element;
    if (element != nullptr && !IsVrOf(line.parts.vr, *element))
    {
        return CString("in this object its VR is ") + Varnotix::VrText(element->Vr()) + ", and that cannot be changed";
    }
    if (!line.parts.isListClosed)
    {
        return "the value list has no ]; a text with line breaks cannot be changed, only replaced by one without";
    }
    if (line.parts.isTextOutside)
    {
        return "there is text outside the value list; a text with brackets cannot be read back";
    }
    const CDcmElement unread(line.tag);
    const CDcmElement& shape = element != nullptr ? *element : unread;
    const EVrKind kind = Varnotix::VrKind(shape.Vr());
    const int count = CountValues(line.parts.values);
    if (m_rules == STREAM_RULES_CLASSIC && kind == EVrKind::Items && element == nullptr && line.inner.empty())
    {
        return "what follows an empty sequence is read as a part of it; give it an item with an attribute";
    }
    if (kind == EVrKind::Bytes)
    {
        if (element != nullptr && element->RawBytes().Size() > kLongestPrintedBytes)
        {
            return "for a value of more than 5000 bytes the line only has the length; it cannot be changed";
        }
        return IsByteList(line.parts.values) ? "" : "bytes are numbers from 0 to 255, or one text without commas";
    }
    if ((kind == EVrKind::OtherWords || kind == EVrKind::Doubles) && count > 0)
    {
        return CString(Varnotix::VrText(shape.Vr())) +
               " values cannot be read from text; restore the printed line or remove it";
    }
    if (IsSingleText(shape))
    {
        return "";
    }
    if (shape.Vm() > 0 && count > shape.Vm() && kind != EVrKind::Items && !shape.HasVr(VR_OF))
    {
        return Number("%d values, but the attribute takes ", count) + Number("%d: commas separate values", shape.Vm());
    }
    if (kind == EVrKind::Text && count > 1 && HasComma(shape))
    {
        return "the text in the object has a comma; with another one its values cannot be separated";
    }
    return "";
}
