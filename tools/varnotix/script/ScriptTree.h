/// A script's element lines, each matched with the element of an object that it describes.
#pragma once

#include "script/ScriptFault.h"

#include <map>
#include <vector>

/// Group 0002, the file meta information, is the first of a file.
inline constexpr int kFirstGroup = 2;
inline constexpr const char* kNoPlaceInFile = "groups below 0002 have no place in a file";

/// One element line, with the lines of its item.
struct SScriptLine
{
    int line = 0; ///< Index of its first line.
    int end = 0;  ///< Index after its last line.
    DWORD tag = 0;
    SAslElement parts{};            ///< Views into the script's lines.
    CDcmElement* element = nullptr; ///< The object's element of the same tag and place; null when it has none.
    bool isSequence = false;        ///< The VR field is SQ.
    bool isUnchanged = false;       ///< The line is the one that the object itself prints for that element.
    std::vector<SScriptLine> item;  ///< For a sequence.
};

/// The elements of each tag in a set, in their order. Those that print no line are left out.
std::map<DWORD, std::vector<CDcmElement*>> ElementsByTag(const CDcmElementSet& set);

/// True when the line, with those after it, is what the object prints for the element.
/// @param count set to the number of lines: a text may hold line breaks.
bool IsOwnLine(const CStringArray& lines, int index, const CDcmElement& element, int& count);

/// Reads a script and matches its lines with an object.
class CScriptTree
{
public:
    /// @param lines must outlive the tree.
    CScriptTree(const CStringArray& lines, const CDcmElementSet& store);

    const std::vector<SScriptLine>& Lines() const { return m_tree; }
    /// Lines that break the structure of the script.
    const std::vector<SScriptFault>& Faults() const { return m_faults; }
    /// Indices of command lines that a document of an object does not hold.
    const std::vector<int>& Commands() const { return m_commands; }

private:
    void ReadLevel(const CDcmElementSet* set, std::vector<SScriptLine>& level);
    bool AddLine(const SAslEvent& event, std::map<DWORD, std::vector<CDcmElement*>>& unmatched,
                 std::vector<SScriptLine>& level);
    void AddFault(int line, const CString& what) { m_faults.push_back({line, what}); }

    const CStringArray& m_lines;
    CAslReader m_reader;
    std::vector<SScriptLine> m_tree;
    std::vector<SScriptFault> m_faults;
    std::vector<int> m_commands;
};
