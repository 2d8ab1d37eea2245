/// A script's elements in an object that holds others.
#pragma once

#include "script/ScriptTree.h"

/// Merges a script into an object's elements.
///
/// The text form does not carry every value. So only lines that differ from what the object itself prints are applied;
/// an element whose line is unchanged, or missing, stays as it is. By the standard stream rules a sequence keeps its
/// items:
/// "#ITEM=2" says which one the lines after it belong to, and a mark after the last item adds one.
class CScriptMerge
{
public:
    /// One value that changed.
    struct SChange
    {
        int line; ///< Index of the line.
        DWORD tag;
        bool isNew; ///< The object had no such element.
    };

    /// Merges at once; when there are faults, the object must not be used any more.
    CScriptMerge(const CStringArray& lines, CDcmIOD& object);

    const std::vector<SScriptFault>& Faults() const { return m_faults; }
    const std::vector<SChange>& Changes() const { return m_changes; }
    /// How many items were added to sequences that the object has.
    int AddedItems() const { return m_addedItems; }
    /// Indices of command lines, which have no effect here.
    const std::vector<int>& Commands() const { return m_commands; }

private:
    void MergeLevel(const SScriptLine& around, CDcmElementSet& set);
    void MergeItems(const SScriptLine& line);
    void MergeTag(const std::vector<const SScriptLine*>& lines, const std::vector<CDcmElement*>& elements,
                  CDcmElementSet& set);
    void MergeLine(const SScriptLine& line);
    void Change(const SScriptLine& line);
    void Add(const SScriptLine& line, CDcmElementSet& set);
    bool Read(const SScriptLine& line, CDcmAttributeModule& module);
    bool IsClear(const SScriptLine& line) const;
    bool MayApply(const SScriptLine& line);
    CString ReasonAgainst(const SScriptLine& line) const;
    void AddFault(int line, const CString& what) { m_faults.push_back({line, what}); }

    const CStringArray& m_lines;
    EStreamRules m_rules;
    std::vector<SScriptFault> m_faults;
    std::vector<SChange> m_changes;
    std::vector<int> m_commands;
    int m_addedItems = 0;
};
