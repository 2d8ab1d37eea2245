/// An enumeration of texts: rows by number, and numbers by text.
#pragma once

#include "Varnotix/platform/String.h"

#include <string>
#include <unordered_map>
#include <vector>

/// Rows keep their order and their duplicates; a search by text returns the last row that matches.
class CNameList
{
public:
    void Add(const CString& text);

    int GetCount() const { return static_cast<int>(m_rows.size()); }

    /// The text of a row; empty for an index outside the list.
    CString At(int index) const;

    /// The last row whose text equals the argument, white space around it ignored. -1 for an empty argument and when
    /// no row matches.
    int LastRowOf(const CString& text) const;

private:
    std::vector<CString> m_rows;
    std::unordered_map<std::string, int> m_lastRow;
};
