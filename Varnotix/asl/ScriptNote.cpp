#include "Varnotix/asl/ScriptNote.h"

#include <algorithm>
#include <iterator>

const char* Varnotix::ScriptNoteText(EScriptNote kind)
{
    static constexpr const char* kTexts[] = {
        "the command is unknown and has no effect",
        "#SEQUENCE_BEGIN follows no SQ line and has no effect",
        "#SEQUENCE_END is outside every sequence: reading ended here",
        "the line has no tag, or one that the dictionary does not know: it was skipped",
        "the tag occurs earlier in this set",
        "the dictionary gives the tag another VR, which is used",
        "text outside the value list was dropped",
        "the value list has no ]",
        "a value is not a number",
        "a number is out of range and was cut",
        "FD values do not survive as text: the element holds other ones",
        "values of OW, UN and Pixel Data are not read from text",
        "the multiplicity leaves no room for the value",
        "the line follows an SQ line without being #SEQUENCE_BEGIN and has no effect",
        "the sequence that begins here has no #SEQUENCE_END",
        "the sequence is nested more than 64 levels deep: reading ended here",
        "the tag is not a sequence in the dictionary: the lines up to #SEQUENCE_END were dropped",
        "#ITEM is outside a sequence, or its number is not that of the next item: it has no effect",
    };
    return kind >= 0 && kind < static_cast<int>(std::size(kTexts)) ? kTexts[kind] : "";
}

void CScriptNotes::Add(int line, EScriptNote kind)
{
    for (auto note = m_notes.rbegin(); note != m_notes.rend() && note->line == line; ++note)
    {
        if (note->kind == kind)
        {
            return;
        }
    }
    m_notes.push_back({line, kind});
}

void CScriptNotes::Sort()
{
    std::stable_sort(m_notes.begin(), m_notes.end(),
                     [](const SScriptNote& left, const SScriptNote& right) { return left.line < right.line; });
}
