/// Diagnostics of the script reader. They change nothing.
#pragma once

#include "Varnotix/platform/Export.h"

#include <vector>

/// Kinds of notes.
enum EScriptNote : int
{
    SCRIPT_UNKNOWN_COMMAND = 0,   ///< The language has no such keyword; the line has no effect.
    SCRIPT_STRAY_BEGIN = 1,       ///< "#SEQUENCE_BEGIN" that follows no SQ line; it has no effect.
    SCRIPT_STRAY_END = 2,         ///< "#SEQUENCE_END" outside every sequence; reading ended here.
    SCRIPT_UNKNOWN_TAG = 3,       ///< No tag, or one that the dictionary lacks and that is not private; line skipped.
    SCRIPT_REPEATED_TAG = 4,      ///< The set has the tag already: the value is replaced, or a single one added to it.
    SCRIPT_OTHER_VR = 5,          ///< The dictionary gives the tag another VR than the line; the dictionary's is used.
    SCRIPT_TEXT_OUTSIDE_LIST = 6, ///< Text after the name and outside the value list is dropped.
    SCRIPT_OPEN_LIST = 7,         ///< The value list has no "]" and ends with the line.
    SCRIPT_BAD_NUMBER = 8,        ///< A value is not a number, or only begins with one.
    SCRIPT_OUT_OF_RANGE = 9,      ///< A number does not fit the VR and is cut.
    SCRIPT_DOUBLE_CHANGED = 10,   ///< FD values change on import; the element holds other ones.
    SCRIPT_NOT_IMPORTED = 11,     ///< Values of OW, UN and Pixel Data are not read from text.
    SCRIPT_NOT_STORED = 12,       ///< The element's multiplicity left no room for the value.
    SCRIPT_LINE_LOST = 13,        ///< The line follows an SQ line, is not a "#SEQUENCE_BEGIN", and has no effect.
    SCRIPT_OPEN_SEQUENCE = 14,    ///< The sequence that begins here has no "#SEQUENCE_END".
    SCRIPT_TOO_DEEP = 15,         ///< The sequence is nested more than 64 levels deep; reading ended here.
    SCRIPT_SEQUENCE_LOST = 16,    ///< The dictionary gives the tag another VR than SQ: the sequence was dropped.
    SCRIPT_BAD_ITEM = 17          ///< "#ITEM" outside a sequence, or not of the next item; it has no effect.
};

namespace Varnotix
{

/// The kind in words, for a host that reports it.
VARNOTIX_EXPORT const char* ScriptNoteText(EScriptNote kind);

} // namespace Varnotix

/// One note.
struct SScriptNote
{
    int line; ///< Index of the line in the array that was read.
    EScriptNote kind;
};

/// Collects notes, each kind once per line.
class CScriptNotes
{
public:
    void Add(int line, EScriptNote kind);
    void Clear() { m_notes.clear(); }
    /// Sorts the notes by line.
    void Sort();
    const std::vector<SScriptNote>& All() const { return m_notes; }

private:
    std::vector<SScriptNote> m_notes;
};
