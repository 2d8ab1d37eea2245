/// A script's element lines, each matched with the element of an object that it describes.
#pragma once

#include "script/ScriptFault.h"

#include <map>
#include <vector>

/// Group 0002, the file meta information, is the first of a file.
inline constexpr int kFirstGroup = 2;
inline constexpr const char* kNoPlaceInFile = "groups below 0002 have no place in a file";

/// One element line, with the lines of its sequence.
struct SScriptLine
{
    int line = 0; ///< Index of its first line.
    int end = 0;  ///< Index after its last line.
    DWORD tag = 0;
    Varnotix::SAslElement parts{};  ///< Views into the script's lines.
    CDcmElement* element = nullptr; ///< The object's element of the same tag and place; null when it has none.
    int item = 0;                   ///< Number of the item that it belongs to; 0 where the script marks no items.
    bool isSequence = false;        ///< The VR field is SQ.
    bool isUnchanged = false;       ///< The line is the one that the object itself prints for that element.
    int items = 0;                  ///< For a sequence: the highest item that the script marks; 0 for none.
    std::vector<SScriptLine> inner; ///< For a sequence.
};

/// The elements of each item and tag in a set, in their order.
using CElementPlaces = std::map<std::pair<int, DWORD>, std::vector<CDcmElement*>>;

/// Those that print no line are left out.
/// @param byItem whether items are distinguished; otherwise all elements are in item 0.
CElementPlaces ElementPlaces(const CDcmElementSet& set, bool byItem);

/// True for the letters of the element's VR, also where these are those of a later VR than the text form knows.
bool IsVrOf(std::string_view letters, const CDcmElement& element);

/// True when the line, with those after it, is what the object prints for the element.
/// @param count set to the number of lines: a text may hold line breaks.
bool IsOwnLine(const CStringArray& lines, int index, const CDcmElement& element, int& count);

/// Reads a script and matches its lines with an object.
class CScriptTree
{
public:
    /// @param lines must outlive the tree.
    /// @param rules by the standard ones, "#ITEM=2" marks the lines of an item.
    CScriptTree(const CStringArray& lines, const CDcmElementSet& store, EStreamRules rules);

    /// A line around all lines.
    const SScriptLine& Root() const { return m_root; }
    /// Lines that break the structure of the script.
    const std::vector<SScriptFault>& Faults() const { return m_faults; }
    /// Indices of command lines that a document of an object does not hold.
    const std::vector<int>& Commands() const { return m_commands; }

private:
    void ReadLevel(const CDcmElementSet* set, SScriptLine& around);
    bool AddLine(const Varnotix::SAslEvent& event, CElementPlaces& unmatched, SScriptLine& around);
    void ReadCommand(const Varnotix::SAslEvent& event, const CDcmElementSet* set, CElementPlaces& unmatched,
                     SScriptLine& around);
    bool BeginItem(int item, const CDcmElementSet* set, CElementPlaces& unmatched, SScriptLine& around) const;
    void AddFault(int line, const CString& what) { m_faults.push_back({line, what}); }

    const CStringArray& m_lines;
    Varnotix::CAslReader m_reader;
    EStreamRules m_rules;
    SScriptLine m_root;
    std::vector<SScriptFault> m_faults;
    std::vector<int> m_commands;
};
